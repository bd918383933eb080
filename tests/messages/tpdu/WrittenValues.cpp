// Random values of every type, written and read back.
#include <random>
#include <tuple>

#include <gtest/gtest.h>

#include "Messages/Write.h"
#include "messages/Readings.h"

namespace {

using namespace Messages;

using Octets = std::vector<std::uint8_t>;

class Values {
public:
    unsigned int Below(unsigned int bound) { return static_cast<unsigned int>(m_Random() % bound); }
    bool Chance() { return Below(2) != 0; }
    std::uint8_t Octet() { return static_cast<std::uint8_t>(Below(256)); }

    template <class Value, class Make>
    std::optional<Value> Perhaps(Make make) {
        return Chance() ? std::optional<Value>(make()) : std::nullopt;
    }

    Address Party() {
        Address address;
        std::string text = Chance() ? "+" : "";
        if (Below(3) == 0) {
            text.clear();
            for (auto letters = Below(12); letters != 0; --letters)
                text += static_cast<char>('A' + Below(26));
            EXPECT_FALSE(ToName(text, address));
            return address;
        }
        for (auto digits = Below(21); digits != 0; --digits)
            text += "0123456789*#abc"[Below(15)];
        EXPECT_FALSE(ToNumber(text, address));
        return address;
    }

    Timestamp Time() {
        return MakeTimestamp(2000 + static_cast<int>(Below(100)), 1 + static_cast<int>(Below(12)),
                             1 + static_cast<int>(Below(28)), static_cast<int>(Below(24)),
                             static_cast<int>(Below(60)), static_cast<int>(Below(60)),
                             static_cast<int>(Below(159)) - 79)
            .value();
    }

    Validity Period() {
        constexpr unsigned int longest = 38102400;
        switch (Below(4)) {
        case 0:
            return {};
        case 1:
            return MakeRelativeValidity(Below(longest)).value();
        case 2:
            return MakeEnhancedValidity(1 + Below(longest), Chance()).value();
        default:
            return MakeAbsoluteValidity(Time());
        }
    }

    DataCoding Coding() {
        const std::uint8_t codings[] = {0x00, 0x04, 0x08, 0x11, 0x20, 0xC8, 0xE0, 0xF5};
        return DataCoding(codings[Below(std::size(codings))]);
    }

    UserData Data(const DataCoding& coding, unsigned int most = 131) {
        Octets elements;
        while (Chance() && elements.size() < 24) {
            const Octets some[] = {{0x00, 3, Octet(), 3, 2},
                                   {0x08, 4, Octet(), Octet(), 255, 1},
                                   {0x05, 4, Octet(), Octet(), Octet(), Octet()},
                                   {0x24, 1, 6},
                                   {0x25, 1, 13},
                                   {0x70, 0},
                                   {0x0A, 3, Octet(), Octet(), Octet()}};
            const Octets& element = some[Below(std::size(some))];
            elements.insert(elements.end(), element.begin(), element.end());
        }
        const auto room = most - static_cast<unsigned int>(elements.size()) - 1;
        Octets content(Below(room));
        for (std::uint8_t& unit : content)
            unit = static_cast<std::uint8_t>(Octet() & (coding.CountsSeptets() ? 0x7FU : 0xFFU));
        return MakeUserData(coding, elements, content).value();
    }

    Tpdu Any() {
        switch (Below(6)) {
        case 0: {
            const DataCoding coding = Coding();
            return Deliver{Chance(), Chance(), Chance(), Chance(),         Party(),
                           Octet(),  coding,   Time(),   Data(coding, 140)};
        }
        case 1: {
            const DataCoding coding = Coding();
            return Submit{Chance(), Chance(), Chance(), Octet(),          Party(),
                          Octet(),  coding,   Period(), Data(coding, 140)};
        }
        case 2: {
            DeliverReport report;
            report.failureCause = Cause();
            Optional(report);
            return report;
        }
        case 3: {
            SubmitReport report;
            report.failureCause = Cause();
            report.timestamp = Time();
            Optional(report);
            return report;
        }
        case 4: {
            StatusReport report{Chance(), Chance(), Chance(), Octet(), Party(), Time(),
                                Time(),   Octet(),  {},       {},      {},      {}};
            Optional(report);
            return report;
        }
        default:
            return Command{Chance(), Octet(), Octet(), Octet(), Octet(), Party(), Data(DataCoding(4))};
        }
    }

private:
    std::optional<std::uint8_t> Cause() {
        return Perhaps<std::uint8_t>([&] { return static_cast<std::uint8_t>(Octet() | 0x80U); });
    }

    template <class Report>
    void Optional(Report& report) {
        report.protocol = Perhaps<std::uint8_t>([&] { return Octet(); });
        report.coding = Perhaps<DataCoding>([&] { return Coding(); });
        report.userData = Perhaps<UserData>([&] { return Data(report.coding.value_or(DataCoding())); });
    }

    std::mt19937 m_Random{20261122}; // NOLINT(cert-msc32-c,cert-msc51-cpp): the same every time
};

// What a value says, for a comparison.

auto Said(const UserData& data) {
    return std::tuple(data.length, data.octets, data.hasHeader, data.isHeaderIgnored, data.elements.size(),
                      data.tables.locking, data.tables.single, data.textOffset, data.fillBits, data.textUnits,
                      data.text);
}
auto Said(const Address& address) {
    return std::tuple(address.typeOfAddress, address.length, address.text);
}
auto Said(const Timestamp& time) {
    return std::tuple(time.octets, time.ToString());
}
template <class Value>
auto SaidIfThere(const std::optional<Value>& value) {
    return value ? std::optional(Said(*value)) : std::nullopt;
}

auto Said(const Deliver& one) {
    return std::tuple(one.moreMessages, one.loopPrevention, one.statusReportIndication, one.replyPath,
                      Said(one.originator), one.protocol, one.coding.value, Said(one.timestamp),
                      Said(one.userData));
}
auto Said(const Submit& one) {
    return std::tuple(one.rejectDuplicates, one.statusReportRequest, one.replyPath, one.reference,
                      Said(one.destination), one.protocol, one.coding.value, one.validity.format,
                      one.validity.octets, Said(one.userData));
}
auto Said(const DeliverReport& one) {
    return std::tuple(one.failureCause, one.protocol, one.coding, SaidIfThere(one.userData));
}
auto Said(const SubmitReport& one) {
    return std::tuple(one.failureCause, Said(one.timestamp), one.protocol, one.coding,
                      SaidIfThere(one.userData));
}
auto Said(const StatusReport& one) {
    return std::tuple(one.moreMessages, one.loopPrevention, one.isForCommand, one.reference,
                      Said(one.recipient), Said(one.timestamp), Said(one.discharge), one.status, one.protocol,
                      one.coding, SaidIfThere(one.userData));
}
auto Said(const Command& one) {
    return std::tuple(one.statusReportRequest, one.reference, one.protocol, one.commandType,
                      one.messageNumber, Said(one.destination), Said(one.data));
}
bool Said(const std::monostate&) {
    return false;
}

TEST(WrittenValues, AreReadBack) {
    Values values;
    for (int round = 0; round < 5000; ++round) {
        const Tpdu tpdu = values.Any();
        std::optional<Address> serviceCentre;
        if (values.Chance())
            serviceCentre = values.Party();
        if (serviceCentre && serviceCentre->IsAlphanumeric())
            serviceCentre.reset();
        const Written written = Write(tpdu, serviceCentre);
        ASSERT_FALSE(written.fault) << MeaningOf(*written.fault);

        ReadOptions options;
        options.serviceCentre = serviceCentre ? Presence::Yes : Presence::No;
        const TpduType type = TypeOf(tpdu);
        const bool isToMobile =
            type == TpduType::Deliver || type == TpduType::SubmitReport || type == TpduType::StatusReport;
        options.direction = isToMobile ? Direction::ToMobile : Direction::FromMobile;
        options.announcedLength = static_cast<std::uint32_t>(written.tpduOctets);
        const Reading reading = Read(written.octets, options);
        ASSERT_TRUE(reading.IsSound()) << ToHex(written.octets) << ": " << tests::RemarksOf(reading);
        ASSERT_EQ(reading.Type(), type);
        ASSERT_EQ(reading.serviceCentre.has_value(), serviceCentre.has_value());
        if (serviceCentre) {
            EXPECT_EQ(reading.serviceCentre->ToString(),
                      serviceCentre->text.empty() ? "" : serviceCentre->ToString());
        }
        std::visit(
            [&](const auto& one) {
                using Type = std::decay_t<decltype(one)>;
                ASSERT_TRUE(Said(std::get<Type>(reading.tpdu)) == Said(one)) << ToHex(written.octets);
            },
            tpdu);
    }
}

} // namespace
