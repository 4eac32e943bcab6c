// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/xml/PathSteps.h"
#include <algorithm>

namespace xml {

namespace {

constexpr int kMaxNesting = 200;
constexpr qsizetype kMaxLength = 20'000; // units

bool IsNameStart(QChar c) {
    return c.isLetter() || c == u'_';
}

bool IsNameCharacter(QChar c) {
    return c.isLetterOrNumber() || c == u'_' || c == u'-' || c == u'.';
}

bool IsPlainName(QStringView text) {
    return !text.isEmpty() && IsNameStart(text[0]) && std::all_of(text.begin(), text.end(), IsNameCharacter);
}

/// "*", a name, or a prefix with one of these.
bool IsNameTest(QStringView text) {
    const qsizetype colon = text.indexOf(u':');
    if (colon >= 0 && !IsPlainName(text.left(colon)))
        return false;
    const QStringView local = text.mid(colon + 1);
    return local == u"*" || IsPlainName(local);
}

bool IsNodeTest(QStringView text) {
    return text == u"text()" || text == u"comment()" || text == u"node()" ||
           text == u"processing-instruction()" || IsNameTest(text);
}

PathCondition ReadCondition(QStringView text) {
    constexpr qsizetype kMostDigits = 9;
    PathCondition condition{text.toString()};
    const QStringView digits = text.trimmed();
    const bool number =
        !digits.isEmpty() && digits.size() <= kMostDigits &&
        std::all_of(digits.begin(), digits.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
    if (number)
        condition.position = digits.toInt() == 0 ? -1 : digits.toInt();
    return condition;
}

/// Where brackets and parentheses open and close on the outside.
struct Outside {
    int depth = 0;
    /// Depth at the character, its own bracket counted.
    int pass(QChar c) {
        if (c == u'(' || c == u'[')
            return ++depth;
        if (c == u')' || c == u']')
            return depth--;
        return depth;
    }
};

/// Cuts "test[condition][condition]"; false when something else stands behind a bracket.
bool CutConditions(QStringView text, QStringView& test, std::vector<PathCondition>& conditions) {
    test = text;
    qsizetype open = -1;
    qsizetype end = -1; // behind the last bracket that closed
    bool good = true;
    Outside outside;
    OutsideStrings(text, [&](QChar c, qsizetype at) {
        const int depth = outside.pass(c);
        if (depth == 1 && c == u'[') {
            good = good && (end < 0 || text.mid(end, at - end).trimmed().isEmpty());
            test = end < 0 ? text.left(at).trimmed() : test;
            open = at;
        } else if (depth == 1 && c == u']' && open >= 0) {
            conditions.push_back(ReadCondition(text.mid(open + 1, at - open - 1)));
            open = -1;
            end = at + 1;
        }
    });
    const bool closed = open < 0 && outside.depth == 0;
    return good && closed && (end < 0 || text.mid(end).trimmed().isEmpty());
}

bool ReadStep(QStringView text, PathStep& step) {
    QStringView test;
    step.text = text.toString();
    if (!CutConditions(text, test, step.conditions))
        return false;
    if (test == u"." || test == u"..") {
        step.kind = test == u"." ? PathStep::Kind::Self : PathStep::Kind::Parent;
        return step.conditions.empty();
    }
    if (test.startsWith(u'@')) {
        step.kind = PathStep::Kind::Attribute;
        step.test = test.mid(1).trimmed().toString();
        return step.conditions.empty() && IsNameTest(step.test);
    }
    if (const qsizetype axis = test.indexOf(u"::"); axis >= 0) {
        step.kind = PathStep::Kind::Axis;
        const QStringView name = test.left(axis).trimmed();
        return IsPlainName(name) && name != u"attribute" && name != u"namespace" &&
               IsNodeTest(test.mid(axis + 2).trimmed());
    }
    step.test = test.toString();
    return IsNodeTest(test);
}

} // namespace

bool IsTooDeep(QStringView expression) {
    int deepest = 0;
    Outside outside;
    OutsideStrings(expression, [&](QChar c, qsizetype) { deepest = std::max(deepest, outside.pass(c)); });
    return deepest > kMaxNesting || expression.size() > kMaxLength;
}

QStringList PathBranches(const QString& path) {
    QStringList branches;
    qsizetype start = 0;
    Outside outside;
    OutsideStrings(path, [&](QChar c, qsizetype at) {
        if (outside.pass(c) != 0 || c != u'|')
            return;
        branches << path.mid(start, at - start);
        start = at + 1;
    });
    return branches << path.mid(start);
}

std::optional<std::vector<PathStep>> ReadPath(QStringView path) {
    path = path.trimmed();
    std::vector<PathStep> steps;
    if (path == u"/")
        return steps;
    qsizetype start = path.startsWith(u'/') ? 1 : 0; // a relative path starts from the document as well
    bool descend = false;
    bool good = true;
    const auto cut = [&](qsizetype end) {
        const QStringView text = path.mid(start, end - start).trimmed();
        PathStep step;
        step.descend = descend;
        good =
            good && (steps.empty() || steps.back().kind != PathStep::Kind::Attribute) && ReadStep(text, step);
        steps.push_back(std::move(step));
    };
    Outside outside;
    OutsideStrings(path, [&](QChar c, qsizetype at) {
        if (outside.pass(c) != 0 || c != u'/' || at < start || !good)
            return;
        if (at == start && !descend) {
            descend = true; // the second of "//"
        } else {
            cut(at);
            descend = false;
        }
        start = at + 1;
    });
    cut(path.size());
    return good ? std::optional(std::move(steps)) : std::nullopt;
}

} // namespace xml
