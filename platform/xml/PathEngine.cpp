// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/xml/PathEngine.h"
#include "platform/xml/PathSteps.h"
#include "platform/xml/PrefixSpace.h"
#include <algorithm>
#include <cmath>
#include <libxml/xpathInternals.h>
#include <new>

namespace xml {

namespace {

// Nodes that are compared with each other in the time of one step.
constexpr unsigned long kComparedPerStep = 500;
constexpr int kStepsSpent =
    static_cast<int>(XML_XPATH_EXPRESSION_OK) + static_cast<int>(XPATH_OP_LIMIT_EXCEEDED);

const xmlChar* Bytes(const QByteArray& text) {
    return reinterpret_cast<const xmlChar*>(text.constData());
}

bool IsNameCharacter(QChar c) {
    return c.isLetterOrNumber() || c.isSurrogate() || c.isMark() || c == u'_' || c == u'-' || c == u'.';
}

/// What the engine dislikes in a path, in our words.
QString PathReason(int code) {
    switch (code - static_cast<int>(XML_XPATH_EXPRESSION_OK)) {
    case XPATH_UNDEF_VARIABLE_ERROR:
    case XPATH_VARIABLE_REF_ERROR:
    case XPATH_FORBID_VARIABLE_ERROR:
        return QStringLiteral("The path uses a variable; there are none here.");
    case XPATH_UNKNOWN_FUNC_ERROR:
        return QStringLiteral("The path uses a function that does not exist.");
    case XPATH_INVALID_ARITY:
        return QStringLiteral("The path uses a function with too few or too many arguments.");
    case XPATH_INVALID_TYPE:
    case XPATH_INVALID_OPERAND:
        return QStringLiteral("The path uses a value of a kind that does not fit there.");
    case XPATH_UNFINISHED_LITERAL_ERROR:
        return QStringLiteral("A text in the path lacks its closing quotation mark.");
    case XPATH_INVALID_PREDICATE_ERROR:
        return QStringLiteral("A condition in the path is not closed: ']' is missing.");
    case XPATH_UNCLOSED_ERROR:
        return QStringLiteral("A ')' is missing in the path.");
    default:
        return code == kStepsSpent ? PathTakesTooLong() : QStringLiteral("The path is not a path of XPath.");
    }
}

/// Keeps the engine's first complaint.
void KeepComplaint(void* user, xmlErrorPtr error) {
    static_cast<PathEngine*>(user)->complain(PathReason(error->code));
}

/// The number of the node that a result entry stands for: an attribute stands for its element. False: for
/// none.
bool NumberOf(const xmlNode* node, std::uint32_t& id) {
    if (node->type == XML_NAMESPACE_DECL)
        return false;
    if (node->type == XML_ATTRIBUTE_NODE)
        node = node->parent;
    id = static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(node->_private));
    return true;
}

} // namespace

QString PathTakesTooLong() {
    return QStringLiteral("The path takes too long to evaluate.");
}

// Steps to children and attributes find each node once. So does the first step of a path, wherever it leads.
bool MayJoin(QStringView expression) {
    bool joins = false;
    QChar before;      // the last character that is not a blank
    qsizetype at = -2; // its place
    OutsideStrings(expression, [&](QChar c, qsizetype place) {
        if (c.isSpace())
            return;
        const bool pair = c == before && at == place - 1;
        if (c == u'|' || (pair && (c == u':' || c == u'.')))
            joins = true; // a union, a written axis, ".."
        if (pair && c == u'/') {
            qsizetype ahead = at - 1;
            while (ahead >= 0 && expression[ahead].isSpace())
                --ahead;
            const QChar end = ahead < 0 ? QChar(u'(') : expression[ahead];
            const bool self = end == u'.' && (ahead == 0 || !IsNameCharacter(expression[ahead - 1]));
            joins = joins || (!self && (IsNameCharacter(end) || QStringView(u")]*").contains(end)));
        }
        before = c;
        at = place;
    });
    return joins;
}

PathEngine::PathEngine(const XPathTree& tree, PathBudget& budget, const QString& path)
    : tree_(tree), budget_(budget), context_(xmlXPathNewContext(tree.document())) {
    if (!context_)
        throw std::bad_alloc();
    context_->error = KeepComplaint;
    context_->userData = this;
    registerPrefixes(path);
}

/// Makes each prefix of the path known, also those that the document lacks: they just select nothing.
void PathEngine::registerPrefixes(QStringView path) {
    OutsideStrings(path, [&](QChar c, qsizetype colon) {
        const bool axis =
            (colon + 1 < path.size() && path[colon + 1] == u':') || (colon > 0 && path[colon - 1] == u':');
        if (c != u':' || axis)
            return;
        qsizetype start = colon;
        while (start > 0 && IsNameCharacter(path[start - 1]))
            --start;
        const QByteArray prefix = path.mid(start, colon - start).toUtf8();
        if (!prefix.isEmpty())
            xmlXPathRegisterNs(context_.get(), Bytes(prefix), Bytes(PrefixSpace(prefix)));
    });
}

void PathEngine::complain(const QString& words) {
    if (complaint_.isEmpty())
        complaint_ = words;
}

PathEngine::Expression PathEngine::compile(const QString& text) {
    Expression expression;
    if (IsTooDeep(text)) {
        complain(QStringLiteral("The path is too long or nested too deep."));
        return expression;
    }
    if (text.trimmed().isEmpty() || text.contains(QChar(u'\0'))) {
        complain(QStringLiteral("The path is empty or not a text."));
        return expression;
    }
    expression.compiled.reset(xmlXPathCtxtCompile(context_.get(), Bytes(text.toUtf8())));
    expression.joins = MayJoin(text);
    if (!expression.compiled)
        complain(QStringLiteral("The path is not a path of XPath."));
    return expression;
}

PathEngine::Result PathEngine::evaluate(const Expression& expression, std::uint32_t id) {
    if (!complaint_.isEmpty() || !expression.compiled)
        return nullptr;
    const unsigned long left = std::max(budget_.left(), 1UL);
    const auto root = static_cast<unsigned long>(std::sqrt(static_cast<double>(left * kComparedPerStep)));
    context_->node = tree_.node(id);
    context_->opCount = 0;
    context_->opLimit = expression.joins ? std::min(left, root) : left;
    Result result(xmlXPathCompiledEval(expression.compiled.get(), context_.get()));
    const unsigned long steps = context_->opCount + 1;
    if (!budget_.take(expression.joins ? steps + steps * steps / kComparedPerStep : steps))
        complain(PathTakesTooLong());
    if (!result)
        complain(QStringLiteral("The path cannot be evaluated."));
    return complaint_.isEmpty() ? std::move(result) : nullptr;
}

bool PathEngine::passes(const Expression& condition, std::uint32_t id, std::size_t position,
                        std::size_t size) {
    context_->proximityPosition = static_cast<int>(position);
    context_->contextSize = static_cast<int>(size);
    const Result result = evaluate(condition, id);
    if (!result)
        return false;
    if (result->type == XPATH_NUMBER)
        return result->floatval == static_cast<double>(position);
    return xmlXPathCastToBoolean(result.get()) != 0;
}

void PathEngine::select(const Expression& expression, std::uint32_t id, std::vector<std::uint32_t>& ids) {
    const Result result = evaluate(expression, id);
    if (!result)
        return;
    if (result->type != XPATH_NODESET) {
        complain(QStringLiteral("The path yields a value and not nodes."));
        return;
    }
    const xmlNodeSet* set = result->nodesetval;
    for (int i = 0; set && i < set->nodeNr; ++i) {
        std::uint32_t number = 0;
        if (NumberOf(set->nodeTab[i], number))
            ids.push_back(number);
    }
}

} // namespace xml
