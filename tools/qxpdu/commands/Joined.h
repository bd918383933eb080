// What was joined, messages or broadcasts.
#ifndef QXPDU_JOINED_H
#define QXPDU_JOINED_H

#include "commands/Rows.h"
#include "show/JsonText.h"
#include "stream/Console.h"

namespace qxpdu {

/// Shows it as the user wants it, after its flaws, which are errors where the user is strict.
template <typename Joined>
void ShowJoined(const Joined& joined, bool isStrict, const RowOptions& rows, Console& console) {
    for (const auto& [source, words] : FlawsOf(joined)) {
        if (!console.WantsJsonLines())
            isStrict ? console.Error(source, words) : console.Warning(source, words);
        else if (isStrict)
            console.Failed(); // the object says so
    }
    if (rows.AreWanted())
        return ShowRow(rows, show::RowOf(joined), console);
    if (!console.WantsJson())
        return console.Block(ToText(joined));
    show::JsonText object;
    Write(joined, object);
    console.Object(object);
}

} // namespace qxpdu

#endif
