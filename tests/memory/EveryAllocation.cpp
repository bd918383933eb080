// Every public operation when memory runs out: the n-th allocation fails, for n = 1, 2, 3 … until the
// operation gets through. Each time it ends with std::bad_alloc, what it worked on is as the rules say and
// can be used again, and nothing is leaked.
#include <functional>
#include <iostream>
#include <memory>
#include <new>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "Encoding/CBMDecoder.h"
#include "Encoding/EncodingModule.h"
#include "Encoding/PduDecoder.h"
#include "Encoding/PduEncoder.h"
#include "Encoding/TextDecoder.h"
#include "Encoding/UCS2Encoding.h"
#include "Toolkit/DateTime.h"
#include "Toolkit/ILogger.h"
#include "Toolkit/LibModuleManager.h"
#include "Toolkit/UTF8.h"
#include "decoder/Samples.h"
#include "support/Allocations.h"
#include "support/CapturingLogger.h"
#include "support/Octets.h"

namespace {

using namespace Encoding;
using Toolkit::smart_ptr;

/// An operation on an object of its own. Made anew for each n.
struct Trial {
    std::function<void()> use; ///< the operation; what it gives is checked inside
    std::function<void()> afterFailure = [] {};
};

struct Operation {
    const char* name;
    std::function<Trial()> prepare;
};

void PrintTo(const Operation& operation, std::ostream* stream) {
    *stream << operation.name;
}

/// A trial whose operation needs an object of its own.
template <class Object, class Use>
Trial On(std::shared_ptr<Object> object, Use use) {
    return {[object, use] { use(*object); }};
}
template <class Object, class Use, class AfterFailure>
Trial On(std::shared_ptr<Object> object, Use use, AfterFailure afterFailure) {
    return {[object, use] { use(*object); }, [object, afterFailure] { afterFailure(*object); }};
}

/// Texts longer than what a string holds by itself.
const TString<wchar_t> c_text = L"Hello {world}, and all who live in it";
const TString<char> c_hex = "004800650066006C0048006500660048";

Trial DecodeSample(const char* sample) {
    const smart_ptr<Pdu> pdu = tests::MakePdu(sample);
    return On(std::make_shared<PduDecoder>(),
              [pdu](PduDecoder& decoder) { EXPECT_EQ(decoder.Decode(pdu, false, false), 1); });
}

std::shared_ptr<PduEncoder> MakeEncoder(const TString<wchar_t>& text) {
    auto encoder = std::make_shared<PduEncoder>(MessageTypeIndicator::TP_MTI_SMS_SUBMIT);
    encoder->SetSmsc(L"+491710760000", false);
    encoder->SetRecipient(L"+4179123");
    encoder->SetText(text);
    return encoder;
}

Trial EncodeText(const TString<wchar_t>& text, std::size_t parts) {
    const auto pdus = std::make_shared<std::vector<smart_ptr<Pdu>>>();
    return On(
        MakeEncoder(text),
        [pdus, parts](PduEncoder& encoder) {
            encoder.RemoveHeader();
            encoder.Encode(*pdus);
            EXPECT_EQ(pdus->size(), parts);
        },
        [pdus, parts](PduEncoder&) {
            EXPECT_LT(pdus->size(), parts);
            for (const smart_ptr<Pdu>& pdu : *pdus) {
                EXPECT_EQ(tests::CountOf(pdu), 1);
                EXPECT_GT(pdu->m_Length, 140U) << "the parts appended already are whole";
            }
        });
}

class SilentModule : public Toolkit::LibModule {};

const std::vector<Operation> c_operations = {
    {"GSMCharSet", [] { return Trial{[] { const GSMCharSet charSet; }}; }},
    {"GSMCharSet::AddTranslateTable",
     [] {
         return On(
             std::make_shared<GSMCharSet>(),
             [](GSMCharSet& charSet) {
                 charSet.AddTranslateTable(TranslateTable::GREEK);
                 EXPECT_EQ(charSet.m_TranslateTables.size(), 1U);
             },
             [](GSMCharSet& charSet) {
                 EXPECT_TRUE(charSet.m_TranslateTables.empty()) << "the selection is unchanged";
             });
     }},
    {"GSMCharSet::GsmToUnicode of octets",
     [] {
         return On(std::make_shared<GSMCharSet>(), [](GSMCharSet& charSet) {
             const tests::Bytes codes(40, 0x41);
             EXPECT_EQ(charSet.GsmToUnicode(codes.data(), 40), TString<wchar_t>(40, L'A'));
         });
     }},
    {"GSMCharSet::GsmToUnicode of a string",
     [] {
         return On(std::make_shared<GSMCharSet>(), [](GSMCharSet& charSet) {
             EXPECT_EQ(charSet.GsmToUnicode(TString<char>(40, 'A')), TString<wchar_t>(40, L'A'));
         });
     }},
    {"GSMCharSet::UnicodeToGsmString",
     [] {
         return On(std::make_shared<GSMCharSet>(), [](GSMCharSet& charSet) {
             EXPECT_EQ(charSet.UnicodeToGsmString(TString<wchar_t>(20, L'{')).size(), 40U);
         });
     }},
    {"UCS2Encoding::IsUCS2 of wide text",
     [] {
         return Trial{
             [] { EXPECT_TRUE(UCS2Encoding::IsUCS2(TString<wchar_t>(c_hex.begin(), c_hex.end()))); }};
     }},
    {"UCS2Encoding::ToUString",
     [] { return Trial{[] { EXPECT_EQ(UCS2Encoding::ToUString(c_hex), L"HeflHefH"); }}; }},
    {"UCS2Encoding::ToUString of wide text",
     [] {
         return Trial{[] {
             EXPECT_EQ(UCS2Encoding::ToUString(TString<wchar_t>(c_hex.begin(), c_hex.end())), L"HeflHefH");
         }};
     }},
    {"UCS2Encoding::ToUCS2",
     [] { return Trial{[] { EXPECT_EQ(UCS2Encoding::ToUCS2(L"HeflHefH").size(), 32U); }}; }},
    {"UCS2Encoding::ToUCS2S",
     [] { return Trial{[] { EXPECT_EQ(UCS2Encoding::ToUCS2S(L"HeflHefH"), c_hex); }}; }},
    {"Pdu::GetString",
     [] {
         return On(std::make_shared<Pdu>(c_hex), [](const Pdu& pdu) { EXPECT_EQ(pdu.GetString(), c_hex); });
     }},
    {"PduCommon", [] { return Trial{[] { const PduCommon common; }}; }},
    {"PduCommon copied",
     [] {
         const auto common = std::make_shared<PduCommon>();
         common->m_Text = c_text;
         return On(common, [](const PduCommon& original) { EXPECT_EQ(PduCommon(original).m_Text, c_text); });
     }},
    {"PduCommon assigned",
     [] {
         const auto common = std::make_shared<PduCommon>();
         common->m_Text = c_text;
         return On(common, [](const PduCommon& original) {
             PduCommon copy;
             copy = original;
             EXPECT_EQ(copy.m_Text, c_text);
         });
     }},
    {"PduDecoder::ReadNumber",
     [] {
         return On(std::make_shared<PduDecoder>(), [](PduDecoder& decoder) {
             TString<wchar_t> number;
             auto npi = NumberingPlan::NPI_UNKNOWN;
             auto ton = TypeOfNumber::TON_UNKNOWN;
             EXPECT_EQ(
                 decoder.ReadNumber(tests::MakePdu("0C 91 21 43 65 87 09 21 00"), 0, true, number, npi, ton),
                 8U);
             EXPECT_EQ(number, L"+123456789012");
         });
     }},
    {"PduDecoder::ReadTimeStamp",
     [] {
         return On(std::make_shared<PduDecoder>(), [](PduDecoder& decoder) {
             smart_ptr<Toolkit::DateTime> time;
             EXPECT_EQ(decoder.ReadTimeStamp(tests::MakePdu("21 20 31 21 43 65 80 00"), 0, time, false), 7U);
             EXPECT_EQ(time->GetYear(), 2012U);
         });
     }},
    {"PduDecoder::Decode, SMS-DELIVER", [] { return DecodeSample(tests::c_deliver); }},
    {"PduDecoder::Decode, alphanumeric address", [] { return DecodeSample(tests::c_deliverFromLetters); }},
    {"PduDecoder::Decode, SMS-SUBMIT", [] { return DecodeSample(tests::c_submitAbsolute); }},
    {"PduDecoder::Decode, SMS-STATUS-REPORT", [] { return DecodeSample(tests::c_report); }},
    {"PduDecoder::Decode, long text",
     [] {
         return DecodeSample(
             "00 00 04 81 21 43 00 00 21 20 31 21 43 65 00 20 41 E1 90 58 34 1E 91 49 E5 92 D9 74 3E A1 "
             "51 E9 94 5A B5 5E B1 59 ED");
     }},
    {"CBMDecoder::Decode",
     [] {
         return On(std::make_shared<CBMDecoder>(), [](CBMDecoder& decoder) {
             EXPECT_TRUE(decoder.Decode(
                 tests::MakePdu("00 01 00 32 01 11 41 E1 90 58 34 1E 91 49 E5 92 D9 74 3E A1")));
             EXPECT_EQ(decoder.m_Text, L"ABCDEFGHIJKLMN");
         });
     }},
    {"TextDecoder of GSM codes",
     [] { return Trial{[] { EXPECT_EQ(TextDecoder(c_text, 0).m_DecodedText.size(), c_text.size()); }}; }},
    {"TextDecoder of hexadecimal text",
     [] {
         return Trial{[] {
             EXPECT_EQ(TextDecoder(TString<wchar_t>(c_hex.begin(), c_hex.end()), 2).m_DecodedText,
                       L"HeflHefH");
         }};
     }},
    {"PduEncoder",
     [] { return Trial{[] { const PduEncoder encoder(MessageTypeIndicator::TP_MTI_SMS_SUBMIT); }}; }},
    {"PduEncoder's text and numbers", [] { return Trial{[] { MakeEncoder(c_text); }}; }},
    {"PduEncoder::SetText with an alphabet",
     [] {
         return On(MakeEncoder(L"a"),
                   [](PduEncoder& encoder) { encoder.SetText(c_text, Alphabet::ALPHABET_UCS2); });
     }},
    {"PduEncoder::AddTranslateTable",
     [] {
         return On(
             MakeEncoder(L"a"),
             [](PduEncoder& encoder) {
                 encoder.AddTranslateTable(TranslateTable::GREEK);
                 EXPECT_TRUE(encoder.FindTable(TranslateTable::GREEK));
             },
             [](PduEncoder& encoder) { EXPECT_FALSE(encoder.FindTable(TranslateTable::GREEK)); });
     }},
    {"PduEncoder::EncodeNumber",
     [] {
         return On(MakeEncoder(L"a"), [](PduEncoder& encoder) {
             unsigned int length = 0;
             unsigned char* octets = nullptr;
             auto ton = TypeOfNumber::TON_UNKNOWN;
             EXPECT_EQ(encoder.EncodeNumber(L"+4179123", false, &length, &octets, ton), 1);
             const std::unique_ptr<unsigned char[]> owned(octets);
             EXPECT_EQ(tests::Hex(octets, length), "91 14 97 21 F3");
         });
     }},
    {"PduEncoder::GetPduCount of GSM text",
     [] {
         return On(MakeEncoder(L"a"), [](PduEncoder& encoder) {
             EXPECT_EQ(encoder.GetPduCount(TString<wchar_t>(161, L'a')), 2U);
         });
     }},
    {"PduEncoder::GetPduCount of UCS2 text",
     [] {
         return On(MakeEncoder(L"a"), [](PduEncoder& encoder) {
             EXPECT_EQ(encoder.GetPduCount(TString<wchar_t>(71, L'\u4E2D')), 2U);
         });
     }},
    {"PduEncoder::GetSubString",
     [] {
         return On(MakeEncoder(L"a"), [](PduEncoder& encoder) {
             unsigned int length = 0;
             unsigned char* octets = nullptr;
             EXPECT_EQ(encoder.GetSubString(L"AB", 0, 2, &length, &octets), 1);
             const std::unique_ptr<unsigned char[]> owned(octets);
             EXPECT_EQ(tests::Hex(octets, length), "00 41 00 42");
         });
     }},
    {"PduEncoder::Encode, GSM, one part", [] { return EncodeText(TString<wchar_t>(160, L'a'), 1); }},
    {"PduEncoder::Encode, GSM, three parts", [] { return EncodeText(TString<wchar_t>(459, L'a'), 3); }},
    {"PduEncoder::Encode, UCS2, one part", [] { return EncodeText(TString<wchar_t>(70, L'\u4E2D'), 1); }},
    {"PduEncoder::Encode, UCS2, three parts", [] { return EncodeText(TString<wchar_t>(201, L'\u4E2D'), 3); }},
    {"smart_ptr", [] { return Trial{[] { const smart_ptr<Pdu> pdu(new Pdu); }}; }},
    {"smart_ptr assigned",
     [] {
         return On(std::make_shared<smart_ptr<Pdu>>(new Pdu), [](smart_ptr<Pdu>& pointer) {
             pointer = new Pdu;
             EXPECT_EQ(pointer->m_Length, 0U);
         });
     }},
    {"LibModuleManager::Register",
     [] {
         const auto module = std::make_shared<SilentModule>();
         return On(
             std::make_shared<Toolkit::LibModuleManager>(),
             [module](Toolkit::LibModuleManager& manager) { EXPECT_TRUE(manager.Register(module.get())); },
             [module](Toolkit::LibModuleManager& manager) {
                 EXPECT_FALSE(manager.IsRegistered(module.get()));
             });
     }},
    {"DateTime::ToString",
     [] {
         return On(
             std::make_shared<Toolkit::DateTime>(2012, 2, 13, 12, 34, 56, -3),
             [](const Toolkit::DateTime& time) { EXPECT_EQ(time.ToString(), "2012-02-13T12:34:56-03:00"); });
     }},
    {"ILogger::GetTime", [] { return Trial{[] { EXPECT_FALSE(Toolkit::ILogger::GetTime().empty()); }}; }},
    {"UTF8::ToUTF8",
     [] {
         return Trial{[] { EXPECT_EQ(Toolkit::UTF8::ToUTF8(TString<wchar_t>(20, L'\u4E2D')).size(), 60U); }};
     }},
    {"UTF8::ToUNICODE",
     [] {
         return Trial{[] {
             EXPECT_EQ(
                 Toolkit::UTF8::ToUNICODE(TString<char>("\xC3\xA9 and \xFF, which is no UTF-8")).front(),
                 L'\u00E9');
         }};
     }},
};

class EveryAllocation : public testing::TestWithParam<Operation> {};

TEST_P(EveryAllocation, Fails) {
    const Operation& operation = GetParam();
    operation.prepare().use(); // whatever is made once in a process is made now
    unsigned long points = 0;
    for (bool isThrough = false; !isThrough;) {
        SCOPED_TRACE(points + 1);
        const unsigned long open = tests::Allocations() - tests::Deallocations();
        {
            const Trial trial = operation.prepare();
            bool isRefused = false;
            {
                const tests::FailAllocation fail(points + 1);
                try {
                    trial.use();
                } catch (const std::bad_alloc&) {
                    isRefused = true;
                }
                ASSERT_EQ(isRefused, fail.Happened()) << "the failure reaches the host";
            }
            isThrough = !isRefused;
            if (isRefused) {
                ++points;
                trial.afterFailure();
                trial.use();
            }
        }
        // The allocation that failed was counted and never given back.
        ASSERT_EQ(tests::Allocations() - tests::Deallocations(), open + (isThrough ? 0 : 1));
    }
    EXPECT_GT(points, 0U) << "an operation that allocates nothing has no place here";
    std::cout << "[  POINTS  ] " << points << std::endl;
}

std::string NameOf(const testing::TestParamInfo<Operation>& info) {
    std::string name;
    for (const char* c = info.param.name; *c != '\0'; ++c)
        if (std::isalnum(static_cast<unsigned char>(*c)) != 0)
            name += *c;
    return name;
}

INSTANTIATE_TEST_SUITE_P(Operations, EveryAllocation, testing::ValuesIn(c_operations), NameOf);

/// The streams of the standard library keep a failure to themselves, so a line may lose a piece; nothing else
/// does.
TEST(LoggedLine, LeaksNothingWhereverAnAllocationFails) {
    const tests::InstalledLogger logger(2);
    logger->m_Pieces.reserve(32);
    for (unsigned long n = 1;; ++n) {
        const unsigned long open = tests::Allocations() - tests::Deallocations();
        bool isOver = false;
        {
            const tests::FailAllocation fail(n);
            try {
                const TextDecoder decoder(c_text, 0);
            } catch (const std::bad_alloc&) {
            }
            isOver = !fail.Happened();
        }
        logger->m_Pieces.clear();
        ASSERT_EQ(tests::Allocations() - tests::Deallocations(), open + (isOver ? 0 : 1)) << n;
        if (isOver)
            break;
    }
    EXPECT_EQ(TextDecoder(c_text, 0).m_DecodedText.size(), c_text.size())
        << "and the next line can be written";
}

/// The module's load is the one operation that nobody calls by hand: loading the library does.
TEST(LoadedModule, IsAsItWasWhereverAnAllocationFails) {
    DllencodingModuleUnload();
    for (unsigned long n = 1;; ++n) {
        const unsigned long open = tests::Allocations() - tests::Deallocations();
        bool isRefused = false;
        {
            const tests::FailAllocation fail(n);
            try {
                DllencodingModuleLoad();
            } catch (const std::bad_alloc&) {
                isRefused = true;
            }
        }
        if (!isRefused)
            break;
        ASSERT_EQ(tests::Allocations() - tests::Deallocations(), open + 1) << n;
    }
    EXPECT_NE(encodingModule, nullptr);
}

} // namespace
