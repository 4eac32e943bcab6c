// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/xml/DirectPath.h"

namespace xml {

namespace {

struct Step {
    QStringView test; ///< a name, "*", "text()" or "comment()"
    int position = 0; ///< 1-based; 0: all, -1: none
};

bool IsNameStart(QChar c) {
    return c.isLetter() || c == u'_';
}

bool IsNameCharacter(QChar c) {
    return c.isLetterOrNumber() || c == u'_' || c == u'-' || c == u'.';
}

/// A name, or two with one colon between them.
bool IsName(QStringView text) {
    const qsizetype colon = text.indexOf(u':');
    if (colon >= 0)
        return IsName(text.left(colon)) && text.indexOf(u':', colon + 1) < 0 && IsName(text.mid(colon + 1));
    return !text.isEmpty() && IsNameStart(text[0]) && std::all_of(text.begin(), text.end(), IsNameCharacter);
}

std::optional<Step> ReadStep(QStringView text) {
    constexpr qsizetype kMostDigits = 9;
    Step step{text};
    const qsizetype bracket = text.indexOf(u'[');
    if (bracket >= 0) {
        if (!text.endsWith(u']'))
            return std::nullopt;
        const QStringView digits = text.mid(bracket + 1).chopped(1);
        const bool number =
            !digits.isEmpty() && digits.size() <= kMostDigits &&
            std::all_of(digits.begin(), digits.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
        if (!number)
            return std::nullopt;
        step.test = text.left(bracket);
        step.position = digits.toInt() == 0 ? -1 : digits.toInt();
    }
    if (step.test == u"*" || step.test == u"text()" || step.test == u"comment()" || IsName(step.test))
        return step;
    return std::nullopt;
}

bool Matches(const DocumentStore& store, const NodeRecord& node, QStringView test) {
    if (test == u"text()")
        return node.type == TEXT || node.type == CDATA_SECTION;
    if (test == u"comment()")
        return node.type == COMMENT;
    return node.type == ELEMENT && (test == u"*" || store.names[node.name] == test);
}

void AddChildren(const DocumentStore& store, std::uint32_t parent, const Step& step,
                 std::vector<std::uint32_t>& found) {
    std::uint32_t child = parent + 1;
    if (child >= store.nodeCount || store.nodes[child].parent != parent)
        return;
    for (int position = 0; child != 0; child = store.nodes[child].next) {
        if (!Matches(store, store.nodes[child], step.test))
            continue;
        ++position;
        if (step.position == 0 || step.position == position)
            found.push_back(child);
        if (step.position == position)
            return;
    }
}

} // namespace

std::optional<std::vector<std::uint32_t>> SelectDirectly(const DocumentStore& store, QStringView path) {
    path = path.trimmed();
    if (!path.startsWith(u'/'))
        return std::nullopt;
    std::vector<Step> steps;
    for (const QStringView text : path.mid(1).split(u'/')) {
        const std::optional<Step> step = text.isEmpty() ? std::nullopt : ReadStep(text);
        if (!step)
            return std::nullopt;
        steps.push_back(*step);
    }
    // All nodes of one step are at one depth, so their children come in document order and each once.
    std::vector<std::uint32_t> nodes = {0};
    for (const Step& step : steps) {
        std::vector<std::uint32_t> found;
        for (const std::uint32_t node : nodes)
            AddChildren(store, node, step, found);
        nodes = std::move(found);
    }
    return nodes;
}

} // namespace xml
