// Random messages in logs of random make: each is found once, and nothing else is.
#include <algorithm>
#include <cstdlib>
#include <functional>
#include <random>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "Found.h"

namespace {

using tests::LogOutcome;
using tests::ReadLog;

constexpr int c_usualLogs = 2000;
constexpr const char* c_logsWanted = "QX_RANDOM_LOGS"; ///< in the environment, how many

class LogMaker {
public:
    explicit LogMaker(unsigned int seed) : m_Random(seed) {}

    std::string Make() {
        m_LineEnd = OneOf<const char*>({"\n", "\r\n", "\r\r\n"});
        m_Prefix = Below(std::size(c_prefixes));
        m_Strings = Below(4);
        m_Group = OneOf<std::size_t>({0, 0, 1, 2, 3, 4, 8});
        m_SaysWidth = m_Group == 0 && Below(4) == 0;
        std::string log;
        for (std::size_t left = 1 + Below(4); left > 0; --left) {
            log += Chatter();
            log += Message();
        }
        return log + Chatter();
    }

    const std::vector<std::string>& Digits() const { return m_Digits; }

private:
    struct Pdu {
        std::string digits;
        std::size_t length; ///< as modems announce it
    };

    std::size_t Below(std::size_t limit) {
        return std::uniform_int_distribution<std::size_t>(0, limit - 1)(m_Random);
    }

    template <class T>
    T OneOf(std::initializer_list<T> values) {
        return values.begin()[Below(values.size())];
    }

    std::string Octets(std::size_t count) {
        std::string digits;
        while (count-- > 0)
            digits += fmt::format("{:02X}", Below(256));
        return digits;
    }

    std::string Decimal(std::size_t digits) {
        std::string number;
        while (digits-- > 0)
            number += static_cast<char>('0' + Below(10));
        return number;
    }

    /// A sound SMS-DELIVER of 8-bit data.
    Pdu MakePdu() {
        const std::string serviceCentre = Below(4) == 0 ? "00" : "0791" + Decimal(12);
        const std::size_t octets = Below(141);
        const std::string tpdu = "040B91" + Decimal(10) + "F1" + "0004" + "42103121436500" +
                                 fmt::format("{:02X}", octets) + Octets(octets);
        return {serviceCentre + tpdu, tpdu.size() / 2};
    }

    static constexpr const char* c_prefixes[] = {"",
                                                 "{:02}:{:02}:{:02} ",
                                                 "[{:02}:{:02}:{:02}.015] <- ",
                                                 "2024-03-{:02} 10:{:02}:{:02},123 DEBUG modem: ",
                                                 "<< ",
                                                 "Mar {:2} {:02}:10:{:02} host smsd[812]: GSM1: ",
                                                 "{:3}.{:06} ttyUSB{}: ",
                                                 "D/RIL ({:2}{:02}{:02}): "};

    std::string Prefix() {
        return fmt::format(fmt::runtime(c_prefixes[m_Prefix]), 10 + Below(14), 10 + Below(50),
                           10 + Below(50));
    }

    std::string Line(const std::string& said) { return Prefix() + said + m_LineEnd; }

    std::string Chatter() {
        std::string lines;
        for (std::size_t left = Below(4); left > 0; --left) {
            lines += Line(
                OneOf<const char*>({"AT+CSQ", "+CSQ: 17,99", "OK", "EC25", "RING", "", "+CREG: 1,\"00C3\"",
                                    "490154203237518", "ERROR", "+CMTI: \"SM\",3", "^RSSI: 20"}));
        }
        return lines;
    }

    std::string Heading(std::size_t length) {
        return fmt::format(
            fmt::runtime(OneOf<const char*>({"+CMT: ,{}", "+CMGR: 0,,{}", "+CMGL: 3,1,,{}",
                                             "+CMGR: 1,\"\",{}", "+CMGR: 4,1,,{}", "+CMT: \"Ada, B\",{}"})),
            length);
    }

    std::string Message() {
        const Pdu pdu = MakePdu();
        m_Digits.push_back(pdu.digits);
        const std::string heading = Heading(pdu.length);
        switch (m_Strings) {
        case 1:
            return Line("got ['AT+CMGR=3\\r', '" + heading + "', '" + pdu.digits + "', 'OK']");
        case 2:
            return Line("rx '\\r\\n" + heading + "\\r\\n" +
                        Wrapped(pdu.digits, [](const std::string& piece) { return piece + "\\r\\n"; }) + "'");
        default:
            return Line(heading) +
                   Wrapped(pdu.digits, [this](const std::string& piece) { return Line(Piece(piece)); }) +
                   Line("OK");
        }
    }

    /// The digits as a program prints them: in groups, or with their number after them.
    std::string Piece(const std::string& digits) const {
        if (m_SaysWidth)
            return fmt::format("{} ({})", digits, digits.size());
        std::string piece;
        for (std::size_t at = 0; at < digits.size(); ++at) {
            if (m_Group != 0 && at != 0 && at % m_Group == 0)
                piece += ' ';
            piece += digits[at];
        }
        return piece;
    }

    std::string Wrapped(const std::string& digits,
                        const std::function<std::string(const std::string&)>& line) {
        const std::size_t width = Below(2) == 0 ? digits.size() : 1 + Below(digits.size());
        std::string lines;
        for (std::size_t at = 0; at < digits.size(); at += width)
            lines += line(digits.substr(at, width));
        return lines;
    }

    std::mt19937 m_Random;
    std::string m_LineEnd;
    std::size_t m_Prefix = 0;
    std::size_t m_Strings = 0;
    std::size_t m_Group = 0; ///< digits after which a blank stands; 0 where none does
    bool m_SaysWidth = false;
    std::vector<std::string> m_Digits;
};

TEST(RandomLogs, EveryMessageIsFoundOnce) {
    const char* const wanted = std::getenv(c_logsWanted); // NOLINT(concurrency-mt-unsafe): no thread
    const int logs = wanted == nullptr ? c_usualLogs : std::atoi(wanted);
    for (int seed = 0; seed < logs; ++seed) {
        LogMaker maker(static_cast<unsigned int>(seed));
        const std::string log = maker.Make();
        const LogOutcome outcome = ReadLog(log);
        std::vector<std::string> found;
        for (const qxpdu::LogEntry& entry : outcome.entries)
            found.push_back(entry.text);
        ASSERT_EQ(found, maker.Digits()) << "seed " << seed << '\n' << log;
        ASSERT_EQ(outcome.counts.lines,
                  outcome.counts.entries + outcome.counts.textModes + outcome.counts.passedOver);
    }
}

} // namespace
