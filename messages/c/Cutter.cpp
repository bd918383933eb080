// What chooses how texts are written, and cuts them.
#include "c/Calls.h"

using namespace Messages;

struct qx_cutter {
    CutText cut;
    Explanation explanation;
    std::string text;
    std::vector<Replacement> replacements;
    Results results;
};

qx_cutter* qx_cutter_new(void) {
    return NewHandle<qx_cutter>();
}

void qx_cutter_free(qx_cutter* cutter) {
    delete cutter;
}

qx_result qx_choose(qx_cutter* cutter, const char* text, size_t size, const qx_cut_options* options,
                    const qx_explanation** explanation) {
    return Handing(cutter, explanation, [&](qx_cutter& used) {
        used.explanation = {};
        Choice choice;
        const auto misfit = Choose(GivenText(text, size), ValueOf(options).choice, choice);
        if (!misfit)
            used.explanation.choices.push_back(choice);
        return used.results.Of(used.explanation, misfit);
    });
}

qx_result qx_explain(qx_cutter* cutter, const char* text, size_t size, const qx_cut_options* options,
                     const qx_explanation** explanation) {
    return Handing(cutter, explanation, [&](qx_cutter& used) {
        used.explanation = {};
        const auto misfit = Explain(GivenText(text, size), ValueOf(options).choice, used.explanation);
        return used.results.Of(used.explanation, misfit);
    });
}

qx_result qx_replace_near(qx_cutter* cutter, const char* text, size_t size, uint16_t languages,
                          const qx_near_text** near_text) {
    return Handing(cutter, near_text, [&](qx_cutter& used) {
        used.replacements.clear();
        used.text = ReplaceNear(GivenText(text, size), LanguagesOf(languages), used.replacements);
        auto* const result = used.results.Make<qx_near_text>();
        result->text = TextOf(used.text);
        used.results.List(used.replacements).To(result->replacements, result->replacement_count);
        return result;
    });
}

qx_result qx_cut(qx_cutter* cutter, const char* text, size_t size, const qx_cut_options* options,
                 const qx_cut_text** cut) {
    return Handing(cutter, cut, [&](qx_cutter& used) {
        used.cut = CutIntoParts(GivenText(text, size), ValueOf(options));
        return used.results.Of(used.cut);
    });
}

qx_result qx_cut_data(qx_cutter* cutter, const uint8_t* data, size_t size, const qx_cut_options* options,
                      const qx_cut_text** cut) {
    return Handing(cutter, cut, [&](qx_cutter& used) {
        used.cut = CutIntoParts(GivenOctets(data, size), ValueOf(options));
        return used.results.Of(used.cut);
    });
}
