// What the built library shows to the dynamic linker, and what it runs at load time.
#include <algorithm>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "support/Command.h"

namespace {

struct Symbol {
    char type;
    std::string name;
};

bool StartsWith(std::string_view text, std::string_view start) {
    return text.substr(0, start.size()) == start;
}

std::vector<Symbol> Symbols(const std::string& options, const std::string& library = ENCODING_LIBRARY) {
    const auto outcome =
        tests::RunCommand(std::string(NM) + " -C " + options + " " + tests::Quoted({library}));
    EXPECT_EQ(outcome.status, 0);
    std::istringstream lines(outcome.output);
    std::vector<Symbol> symbols;
    for (std::string line; std::getline(lines, line);) {
        constexpr std::size_t digits = 2 * sizeof(void*); // then the type and the name, a blank between two
        if (line.size() <= digits + 3)
            continue;
        const std::string name = line.substr(digits + 3);
        if (!StartsWith(name, "__odr_asan.")) // the address sanitizer's mark on a name that is there itself
            symbols.push_back({line[digits + 1], name});
    }
    EXPECT_FALSE(symbols.empty());
    return symbols;
}

std::vector<Symbol> Exported(const std::string& library = ENCODING_LIBRARY) {
    return Symbols("-D --defined-only", library);
}

/// The classes of the public headers of either library. Of the standard library, whose own headers mark it, a
/// build keeps what it does not inline.
const std::set<std::string_view> c_codecClasses{
    "Encoding::CBMDecoder", "Encoding::EncodingModule", "Encoding::GSMCharSet",
    "Encoding::Pdu",        "Encoding::PduCommon",      "Encoding::PduDecoder",
    "Encoding::PduEncoder", "Encoding::TextDecoder",    "Encoding::UCS2Encoding"};
const std::set<std::string_view> c_toolkitClasses{"Toolkit::DateTime",    "Toolkit::ILogger",
                                                  "Toolkit::LibModule",   "Toolkit::LibModuleManager",
                                                  "Toolkit::Mutex",       "Toolkit::MutexInternal",
                                                  "Toolkit::SetSeverity", "Toolkit::SystemInfo",
                                                  "Toolkit::UTF8",        "std"};

bool IsMarkedInTheHeaders(std::string_view name, const std::set<std::string_view>& classes) {
    static const std::set<std::string_view> others{"DllencodingModuleLoad",
                                                   "DllencodingModuleUnload",
                                                   "encodingModule",
                                                   "TString<char>::Empty()",
                                                   "TString<wchar_t>::Empty()",
                                                   "TString<char>::Empty()::_Empty",
                                                   "TString<wchar_t>::Empty()::_Empty"};
    const auto isOfOne = [&classes](std::string_view of) {
        return std::any_of(classes.begin(), classes.end(), [of](std::string_view scope) {
            return of == scope || StartsWith(of, std::string(scope) + "::");
        });
    };
    for (const std::string_view prefix : {"vtable for ", "typeinfo for ", "typeinfo name for "})
        if (StartsWith(name, prefix)) {
            const std::string_view of = name.substr(prefix.size());
            return isOfOne(of) || of == "Toolkit::ReleaseHook"; // inline, and used by smart_ptr
        }
    if (StartsWith(name, "guard variable for "))
        name.remove_prefix(std::string_view("guard variable for ").size());
    return others.count(name) != 0 || isOfOne(name);
}

TEST(Exports, AreMarkedInThePublicHeaders) {
#ifdef QX_SANITIZED
    GTEST_SKIP() << "sanitizers add names, and leave what is inlined elsewhere";
#endif
    for (const Symbol& symbol : Exported())
        EXPECT_TRUE(IsMarkedInTheHeaders(symbol.name, c_codecClasses)) << symbol.type << " " << symbol.name;
    for (const Symbol& symbol : Exported(TOOLKIT_LIBRARY))
        EXPECT_TRUE(IsMarkedInTheHeaders(symbol.name, c_toolkitClasses)) << symbol.type << " " << symbol.name;
}

TEST(Exports, HaveNoUniqueLinkage) {
    for (const char* const library : {ENCODING_LIBRARY, TOOLKIT_LIBRARY})
        for (const Symbol& symbol : Exported(library))
            EXPECT_NE(symbol.type, 'u') << symbol.name;
}

TEST(Exports, GlobalIsStaticallyNull) {
    const std::vector<Symbol> symbols = Exported();
    const auto global = std::find_if(symbols.begin(), symbols.end(),
                                     [](const Symbol& symbol) { return symbol.name == "encodingModule"; });
    ASSERT_NE(global, symbols.end());
    EXPECT_EQ(global->type, 'B'); // zeroed memory, not a value in the file
}

TEST(Exports, HoldEveryPublicOperation) {
    std::set<std::string> exported;
    for (const Symbol& symbol : Exported())
        exported.insert(symbol.name.substr(0, symbol.name.find('(')));
    const char* const names[] = {
        "DllencodingModuleLoad",
        "DllencodingModuleUnload",
        "encodingModule",
        "TString<char>::Empty",
        "TString<wchar_t>::Empty",
        "Encoding::EncodingModule::Initialize",
        "Encoding::EncodingModule::Release",
        "Encoding::EncodingModule::~EncodingModule",
        "Encoding::GSMCharSet::AddTranslateTable",
        "Encoding::GSMCharSet::ClearTranslateTable",
        "Encoding::GSMCharSet::FindTable",
        "Encoding::GSMCharSet::FindUnicodeCharFromEscapeChar",
        "Encoding::GSMCharSet::GSMCharSet",
        "Encoding::GSMCharSet::GetGsmBytes",
        "Encoding::GSMCharSet::GreekToUnicode",
        "Encoding::GSMCharSet::GsmToUnicode",
        "Encoding::GSMCharSet::Translate",
        "Encoding::GSMCharSet::UnicodeToGsm",
        "Encoding::GSMCharSet::UnicodeToGsmString",
        "Encoding::GSMCharSet::m_GsmDefaultTable",
        "Encoding::GSMCharSet::~GSMCharSet",
        "Encoding::UCS2Encoding::IsUCS2",
        "Encoding::UCS2Encoding::ToUCS2",
        "Encoding::UCS2Encoding::ToUCS2S",
        "Encoding::UCS2Encoding::ToUString",
        "Encoding::UCS2Encoding::c_fromHex",
        "Encoding::UCS2Encoding::c_toHex",
        "Encoding::Pdu::Clear",
        "Encoding::Pdu::GetString",
        "Encoding::Pdu::Pdu",
        "Encoding::Pdu::SetBytes",
        "Encoding::Pdu::Write",
        "Encoding::PduCommon::HexaToInt",
        "Encoding::PduCommon::PduCommon",
        "Encoding::PduCommon::SwapNumber",
        "Encoding::PduCommon::~PduCommon",
        "Encoding::PduDecoder::Decode",
        "Encoding::PduDecoder::ReadAlphabet",
        "Encoding::PduDecoder::ReadClass",
        "Encoding::PduDecoder::ReadDCS",
        "Encoding::PduDecoder::ReadNumber",
        "Encoding::PduDecoder::ReadSmsType",
        "Encoding::PduDecoder::ReadStatus",
        "Encoding::PduDecoder::ReadTimeStamp",
        "Encoding::CBMDecoder::Decode",
        "Encoding::TextDecoder::TextDecoder",
        "Encoding::TextDecoder::~TextDecoder",
        "Encoding::PduEncoder::AddTranslateTable",
        "Encoding::PduEncoder::ClearTranslateTable",
        "Encoding::PduEncoder::Encode",
        "Encoding::PduEncoder::EncodeNumber",
        "Encoding::PduEncoder::FindTable",
        "Encoding::PduEncoder::GetPduCount",
        "Encoding::PduEncoder::GetSubString",
        "Encoding::PduEncoder::MAX_7BITDATA_LEN",
        "Encoding::PduEncoder::MAX_DATA_LEN",
        "Encoding::PduEncoder::MAX_DATA_LEN_WITH_HEADER",
        "Encoding::PduEncoder::MAX_GSM_LEN_WITH_HEADER",
        "Encoding::PduEncoder::PduEncoder",
        "Encoding::PduEncoder::RemoveHeader",
        "Encoding::PduEncoder::SetClass",
        "Encoding::PduEncoder::SetHeader",
        "Encoding::PduEncoder::SetMessageReference",
        "Encoding::PduEncoder::SetRecipient",
        "Encoding::PduEncoder::SetReject_Duplicates",
        "Encoding::PduEncoder::SetReplyPath",
        "Encoding::PduEncoder::SetRequireStatusReport",
        "Encoding::PduEncoder::SetSmSType",
        "Encoding::PduEncoder::SetSmsc",
        "Encoding::PduEncoder::SetText",
        "Encoding::PduEncoder::SetValidityPeriod",
        "Encoding::PduEncoder::USER_DATA_HEADER_SIZE",
        "Encoding::PduEncoder::_7BITDATA_HEADER_SIZE",
        "Encoding::PduEncoder::~PduEncoder",
    };
    for (const char* const name : names)
        EXPECT_EQ(exported.count(name), 1U) << name;
}

TEST(Exports, OneObjectOfTheLibraryIsConstructedAtLoadTime) {
    // The compilers gather the constructors of one source file's static objects in a function of this name.
    std::vector<std::string> constructors;
    for (const Symbol& symbol : Symbols("--defined-only"))
        if (symbol.name.find("_GLOBAL__sub_I_") != std::string::npos ||
            symbol.name.find("global constructors keyed to") != std::string::npos)
            constructors.push_back(symbol.name);
    ASSERT_EQ(constructors.size(), 1U) << testing::PrintToString(constructors);
}

#ifndef QX_SANITIZED // sanitizers run constructors of their own
TEST(Exports, LoadTimeRunsThatConstructorAndTheCompilersOnly) {
    const auto outcome =
        tests::RunCommand(std::string(READELF) + " -SW " + tests::Quoted({ENCODING_LIBRARY}));
    ASSERT_EQ(outcome.status, 0);
    std::istringstream line(outcome.output.substr(outcome.output.find(".init_array")));
    std::string name, type, address, offset, size;
    line >> name >> type >> address >> offset >> size;
    EXPECT_EQ(type, "INIT_ARRAY");
    EXPECT_EQ(std::stoul(size, nullptr, 16), 2 * sizeof(void*)) << "frame_dummy and the library's own";
}
#endif

} // namespace
