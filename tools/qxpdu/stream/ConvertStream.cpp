#include "stream/Conversion.h"

namespace qxpdu {

int ConvertStream(const ConversionSettings& settings, const Streams& streams, const Converter& converter) {
    Conversion conversion(settings, streams, converter);
    if (streams.endInputOnSignal && converter.kind != LineKind::Whole)
        streams.endInputOnSignal(); // the half of a text is none
    WorkInOrder([&conversion] { return conversion.Take(); }, settings.threads,
                [&conversion](unsigned int threads) { conversion.TellOfThreads(threads); });
    return conversion.Finish();
}

} // namespace qxpdu
