/// @file
/// The string type of every interface: a standard string under a name of its own.
///
/// Threads: as for the standard string; one object is used by one thread at a time.
#ifndef TOOLKIT_TSTRING_H
#define TOOLKIT_TSTRING_H

#include <string>
#include <utility>

#include "Toolkit/Export.h"

/// A std::basic_string without any state of its own. `TString<wchar_t>` holds one code unit per 32-bit
/// character; the codecs use the low 16 bits of each (UCS-2).
template <class CharT>
class TOOLKIT_API TString : public std::basic_string<CharT> {
public:
    using std::basic_string<CharT>::basic_string;

    TString() = default;
    /// A standard string is taken as it is.
    TString(const std::basic_string<CharT>& text) : std::basic_string<CharT>(text) {}
    /// A standard string that is given away is not copied.
    TString(std::basic_string<CharT>&& text) noexcept : std::basic_string<CharT>(std::move(text)) {}

    /// The one empty string of the process, made on first use and destroyed at exit. The first calls may
    /// come from several threads at once. libQX_Encoding holds the instances for `char` and `wchar_t`, so
    /// that every caller in the process sees the same object.
    static const TString& Empty();
};

#endif
