// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>
#include <QStringList>
#include <QStringView>
#include <optional>
#include <vector>

namespace xml {

/// What stands in brackets behind a step.
struct PathCondition {
    QString text; ///< without the brackets
    int position =
        0; ///< 1-based, where it is a number; -1: a number that no node has; 0: it must be evaluated
};

/// One step of a path.
struct PathStep {
    enum class Kind {
        Child,     ///< a child that passes `test` and `conditions`
        Attribute, ///< an attribute with the name `test`; only the last step is one
        Self,      ///< "."
        Parent,    ///< ".."
        Axis       ///< with a written axis such as ancestor::a; `text` is for the engine
    };
    Kind kind = Kind::Child;
    bool descend = false; ///< it stands behind "//": it starts from the nodes so far and all below them
    QString test;         ///< a name, "p:*", "*", "text()", "comment()", "node()", "processing-instruction()"
    std::vector<PathCondition> conditions;
    QString text; ///< the step as it is written
};

/// The paths that a union is made of; they may be empty or wrong.
QStringList PathBranches(const QString& path);

/// Cuts a path into steps. No steps: the document itself. Nothing where the path is more than steps
/// (parentheses, functions, values), wrong, or goes on behind an attribute: that one is for the engine as a
/// whole.
std::optional<std::vector<PathStep>> ReadPath(QStringView path);

/// Whether an expression is too long or nested too deep for the engine, which calls itself for each step and
/// bracket.
bool IsTooDeep(QStringView expression);

/// Calls `act` with each character of an expression that is not part of a string in quotes, and its place.
template <typename Act> void OutsideStrings(QStringView expression, Act act) {
    QChar quote;
    for (qsizetype i = 0; i < expression.size(); ++i) {
        const QChar c = expression[i];
        if (!quote.isNull())
            quote = c == quote ? QChar() : quote;
        else if (c == u'"' || c == u'\'')
            quote = c;
        else
            act(c, i);
    }
}

} // namespace xml
