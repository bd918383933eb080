// Distinct codecs on distinct threads.
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "Encoding/EncodingModule.h"
#include "Encoding/PduDecoder.h"
#include "Encoding/PduEncoder.h"
#include "Encoding/TextDecoder.h"
#include "Toolkit/ILogger.h"
#include "Toolkit/LibModuleManager.h"
#include "support/CapturedStderr.h"
#include "support/Octets.h"
#include "threads/Together.h"

namespace {

using namespace Encoding;
using tests::Together;

TEST(Codecs, DistinctEncodersAndDecodersWorkAtOnce) {
    Together(4, [](std::size_t thread) {
        for (int round = 0; round < 50; ++round) {
            PduEncoder encoder(MessageTypeIndicator::TP_MTI_SMS_SUBMIT);
            encoder.SetRecipient(L"+4179123");
            if (thread % 2 != 0)
                encoder.AddTranslateTable(TranslateTable::GREEK);
            const TString<wchar_t> text = tests::Wide({0x68, 0x391, 0x20AC}); // h, Alpha, euro sign
            encoder.SetText(thread < 2 ? TString<wchar_t>(L"hello") : text);
            std::vector<Toolkit::smart_ptr<Pdu>> pdus;
            encoder.Encode(pdus);
            ASSERT_EQ(pdus.size(), 1U);
            if (thread < 2) {
                EXPECT_EQ(pdus[0]->GetString(), "0001000791149721F3000005E8329BFD06");
            }

            PduDecoder decoder;
            ASSERT_EQ(decoder.Decode(pdus[0], false, false), 1);
            EXPECT_EQ(decoder.m_Recipient, L"+4179123");
            if (thread < 2) {
                EXPECT_EQ(decoder.m_Text, L"hello");
            }
            if (thread == 2) {
                EXPECT_EQ(decoder.m_Text, text);
            }
            if (thread == 3) {
                EXPECT_EQ(decoder.m_Text, tests::Wide({0x68, 0x41, 0x20AC}));
            }
        }
    });
}

TEST(Codecs, DistinctDecodersReadOnePduAtOnce) {
    const auto pdu = tests::MakePdu("0791214365870921 040B912143658709F1 0000 21203121436580 05C8329BFD06");
    const int count = tests::CountOf(pdu);
    Together(4, [&pdu](std::size_t) {
        for (int round = 0; round < 100; ++round) {
            PduDecoder decoder;
            ASSERT_EQ(decoder.Decode(pdu, false, false), 1);
            EXPECT_EQ(decoder.m_Text, L"Hello");
            EXPECT_EQ(decoder.m_ServiceCentreTime->ToString(), "2012-02-13T12:34:56+02:00");
        }
    });
    EXPECT_EQ(tests::CountOf(pdu), count);
}

/// The module object is nothing to the codecs.
TEST(Codecs, WorkWhileTheModuleIsLoadedAndUnloaded) {
    Together(3, [](std::size_t thread) {
        for (int round = 0; round < 50; ++round) {
            if (thread == 0) {
                DllencodingModuleUnload();
                DllencodingModuleLoad();
            } else {
                PduDecoder decoder;
                ASSERT_EQ(decoder.Decode(tests::MakePdu("0001000791149721F3000005E8329BFD06"), false, false),
                          1);
                EXPECT_EQ(decoder.m_Text, L"hello");
            }
        }
    });
    EXPECT_TRUE((*Toolkit::LibModuleManager::s_pInstance)->IsRegistered(encodingModule));
}

TEST(Codecs, TextDecodersLogWholeLinesAtOnce) {
    const tests::CapturedStderr captured;
    (*Toolkit::ILogger::s_pInstance)->SetLevel(2);
    Together(4, [](std::size_t) {
        for (int round = 0; round < 50; ++round)
            EXPECT_EQ(TextDecoder(L"AB", 0).m_DecodedText, L"AB");
    });
    (*Toolkit::ILogger::s_pInstance)->SetLevel(1);

    const std::string end = "Z | 49 | TextDecoder | TextDecoder( 0, 0000004100000042 )";
    std::istringstream text(captured.Text());
    int count = 0;
    for (std::string line; std::getline(text, line); ++count) {
        ASSERT_EQ(line.substr(0, 2), "2 ");
        ASSERT_EQ(line.size(), std::string("2 2012-02-13T12:34:56.789").size() + end.size()) << line;
        ASSERT_EQ(line.substr(line.size() - end.size()), end);
    }
    EXPECT_EQ(count, 200);
}

} // namespace
