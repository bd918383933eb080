// A cell broadcast message of several pages as it is shown.
#ifndef SHOW_JOINEDBROADCAST_H
#define SHOW_JOINEDBROADCAST_H

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "show/JoinedMessage.h"
#include "show/JsonText.h"
#include "show/compare/BroadcastComparison.h"

namespace show {

/// An input that pages came in.
struct PageSource {
    std::string name;      ///< "line 3"
    bool isArgument;       ///< or a line
    std::size_t input;     ///< its number
    std::string_view file; ///< that the line stands in
    std::shared_ptr<const ComparedBroadcast> compared;

    int FirstPage() const { return compared->broadcast.reading.pages.front().number; }
};

struct JoinedBroadcast {
    Messages::CellMessage message;   ///< with the pages that have come, at least one
    std::vector<PageSource> sources; ///< in the order of their first pages
};

/// Of pages, their numbers.
std::vector<int> NumbersOf(const std::vector<Messages::CellPage>& pages);

/// "page 2", "pages 2, 4"
std::string PagesText(const std::vector<int>& numbers);

/// What is missing from the message though its pages by themselves do not say so.
std::vector<JoinedFlaw> FlawsOf(const JoinedBroadcast& joined);

/// For a person, lines as those of a page.
std::string ToText(const JoinedBroadcast& joined);

/// For a program.
void Write(const JoinedBroadcast& joined, JsonText& object);

} // namespace show

#endif
