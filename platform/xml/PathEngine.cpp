// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/xml/PathEngine.h"
#include "platform/xml/PathSteps.h"
#include "platform/xml/PrefixSpace.h"
#include <algorithm>
#include <libxml/xpathInternals.h>
#include <new>

namespace xml {

namespace {

// Steps of one evaluation. The engine joins the sets that it found from several nodes by comparing each node
// with each, and that counts as no step.
constexpr unsigned long kMostAtOnce = 200'000;
constexpr int kStepsSpent =
    static_cast<int>(XML_XPATH_EXPRESSION_OK) + static_cast<int>(XPATH_OP_LIMIT_EXCEEDED);

const xmlChar* Bytes(const QByteArray& text) {
    return reinterpret_cast<const xmlChar*>(text.constData());
}

bool IsNameCharacter(QChar c) {
    return c.isLetterOrNumber() || c.isSurrogate() || c.isMark() || c == u'_' || c == u'-' || c == u'.';
}

QString TooLong() {
    return QStringLiteral("The path takes too long to evaluate.");
}

/// Keeps the engine's first complaint.
void KeepComplaint(void* user, xmlErrorPtr error) {
    static_cast<PathEngine*>(user)->complain(
        error->code == kStepsSpent ? TooLong() : QString::fromUtf8(error->message).simplified());
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

PathEngine::Compiled PathEngine::compile(const QString& expression) {
    if (IsTooDeep(expression)) {
        complain(QStringLiteral("The path is too long or nested too deep."));
        return nullptr;
    }
    Compiled compiled(xmlXPathCtxtCompile(context_.get(), Bytes(expression.toUtf8())));
    if (!compiled)
        complain(QStringLiteral("The path is not a path of XPath."));
    return compiled;
}

PathEngine::Result PathEngine::evaluate(const xmlXPathCompExpr& expression, std::uint32_t id) {
    if (!complaint_.isEmpty())
        return nullptr;
    context_->node = tree_.node(id);
    context_->opCount = 0;
    context_->opLimit = std::clamp(budget_.left(), 1UL, kMostAtOnce);
    Result result(xmlXPathCompiledEval(const_cast<xmlXPathCompExpr*>(&expression), context_.get()));
    if (!budget_.take(context_->opCount + 1))
        complain(TooLong());
    if (!result)
        complain(QStringLiteral("The path cannot be evaluated."));
    return complaint_.isEmpty() ? std::move(result) : nullptr;
}

bool PathEngine::passes(const xmlXPathCompExpr& condition, std::uint32_t id, std::size_t position,
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

void PathEngine::select(const xmlXPathCompExpr& expression, std::uint32_t id,
                        std::vector<std::uint32_t>& ids) {
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
