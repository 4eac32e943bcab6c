// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/xml/LibXmlScope.h"
#include "platform/xml/PrefixSpace.h"
#include "platform/xml/XPathTree.h"
#include <algorithm>
#include <libxml/xpath.h>
#include <libxml/xpathInternals.h>
#include <new>

namespace xml {

namespace {

constexpr unsigned long kFreeSteps = 5'000'000; // of the engine, for any path
constexpr unsigned long kStepsPerNode = 30;
constexpr int kStepsSpent =
    static_cast<int>(XML_XPATH_EXPRESSION_OK) + static_cast<int>(XPATH_OP_LIMIT_EXCEEDED);
constexpr int kMaxNesting = 200;       // brackets in brackets; the engine calls itself for each
constexpr qsizetype kMaxPath = 20'000; // units; the engine calls itself for each step

template <auto Free> struct FreeWith {
    template <typename T> void operator()(T* object) const { Free(object); }
};
using Context = std::unique_ptr<xmlXPathContext, FreeWith<xmlXPathFreeContext>>;
using Compiled = std::unique_ptr<xmlXPathCompExpr, FreeWith<xmlXPathFreeCompExpr>>;
using Result = std::unique_ptr<xmlXPathObject, FreeWith<xmlXPathFreeObject>>;

const xmlChar* Bytes(const QByteArray& text) {
    return reinterpret_cast<const xmlChar*>(text.constData());
}

bool IsNameCharacter(QChar c) {
    return c.isLetterOrNumber() || c.isSurrogate() || c.isMark() || c == u'_' || c == u'-' || c == u'.';
}

/// Calls `act` with each character of the path that is not part of a string in quotes, and its place.
template <typename Act> void OutsideStrings(QStringView path, Act act) {
    QChar quote;
    for (qsizetype i = 0; i < path.size(); ++i) {
        const QChar c = path[i];
        if (!quote.isNull())
            quote = c == quote ? QChar() : quote;
        else if (c == u'"' || c == u'\'')
            quote = c;
        else
            act(c, i);
    }
}

bool IsTooDeep(QStringView path) {
    int depth = 0;
    int deepest = 0;
    OutsideStrings(path, [&](QChar c, qsizetype) {
        if (c == u'(' || c == u'[')
            deepest = std::max(deepest, ++depth);
        else if (c == u')' || c == u']')
            --depth;
    });
    return deepest > kMaxNesting || path.size() > kMaxPath;
}

/// The paths that a union is made of. The engine joins two sets by comparing each node with each.
QStringList Branches(const QString& path) {
    QStringList branches;
    qsizetype start = 0;
    int depth = 0;
    OutsideStrings(path, [&](QChar c, qsizetype at) {
        if (c == u'(' || c == u'[')
            ++depth;
        else if (c == u')' || c == u']')
            --depth;
        if (c != u'|' || depth != 0)
            return;
        branches << path.mid(start, at - start);
        start = at + 1;
    });
    return branches << path.mid(start);
}

/// Makes each prefix of the path known, also those that the document lacks: they just select nothing.
void RegisterPrefixes(xmlXPathContext* context, QStringView path) {
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
            xmlXPathRegisterNs(context, Bytes(prefix), Bytes(PrefixSpace(prefix)));
    });
}

/// Keeps the engine's first complaint.
void KeepComplaint(void* user, xmlErrorPtr error) {
    auto& words = *static_cast<QString*>(user);
    if (!words.isEmpty())
        return;
    words = error->code == kStepsSpent ? QStringLiteral("The path takes too long to evaluate.")
                                       : QString::fromUtf8(error->message).simplified();
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

void AddNumbers(const xmlNodeSet* set, std::vector<std::uint32_t>& ids) {
    for (int i = 0; set && i < set->nodeNr; ++i) {
        std::uint32_t id = 0;
        if (NumberOf(set->nodeTab[i], id))
            ids.push_back(id);
    }
}

/// Evaluates a path without a union on top. Empty when that went well, else words for what is wrong.
QString Evaluate(xmlXPathContext* context, const QString& path, std::vector<std::uint32_t>& ids) {
    const Compiled compiled(xmlXPathCtxtCompile(context, Bytes(path.toUtf8())));
    if (!compiled)
        return QStringLiteral("The path is not a path of XPath.");
    const Result result(xmlXPathCompiledEval(compiled.get(), context));
    if (!result)
        return QStringLiteral("The path cannot be evaluated.");
    if (result->type != XPATH_NODESET)
        return QStringLiteral("The path yields a value and not nodes.");
    AddNumbers(result->nodesetval, ids);
    return {};
}

} // namespace

std::vector<std::uint32_t> XPathTree::select(const QString& path, QString* error) const {
    QString complaint;
    const auto fail = [&](const QString& words) {
        if (error)
            *error = complaint.isEmpty() ? words : complaint;
        return std::vector<std::uint32_t>();
    };
    if (path.trimmed().isEmpty() || path.contains(QChar(u'\0')))
        return fail(QStringLiteral("The path is empty or not a text."));
    if (IsTooDeep(path))
        return fail(QStringLiteral("The path is too long or nested too deep."));
    const LibXmlScope scope;
    const Context context(xmlXPathNewContext(document_.get()));
    if (!context)
        return fail(QStringLiteral("There is not enough memory to search this document."));
    context->node = reinterpret_cast<xmlNode*>(document_.get());
    context->error = KeepComplaint;
    context->userData = &complaint;
    context->opLimit = kFreeSteps + kStepsPerNode * store_.nodeCount;
    RegisterPrefixes(context.get(), path);
    std::vector<std::uint32_t> ids;
    for (const QString& branch : Branches(path)) {
        const QString words = Evaluate(context.get(), branch, ids);
        if (!words.isEmpty())
            return fail(words);
    }
    std::sort(ids.begin(), ids.end());
    ids.erase(std::unique(ids.begin(), ids.end()), ids.end());
    return ids;
}

} // namespace xml
