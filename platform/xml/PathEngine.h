// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/xml/LibXmlScope.h"
#include "platform/xml/XPathTree.h"
#include <QString>
#include <libxml/xpath.h>
#include <memory>
#include <vector>

namespace xml {

/// Steps that a path may still take, so that none takes minutes.
class PathBudget {
public:
    explicit PathBudget(std::uint32_t nodeCount) : left_(kFree + kPerNode * nodeCount) {}
    bool take(unsigned long steps) {
        const bool enough = steps <= left_;
        left_ = enough ? left_ - steps : 0;
        return enough;
    }
    unsigned long left() const { return left_; }

private:
    static constexpr unsigned long kFree = 5'000'000;
    static constexpr unsigned long kPerNode = 30;
    unsigned long left_;
};

QString PathTakesTooLong();

/// Whether the engine may have to join the sets that it finds from several nodes. It compares each node of
/// such sets with each, and does not count that as steps.
bool MayJoin(QStringView expression);

/// The parser library's XPath engine for one path on one document. The first thing that goes wrong is kept as
/// the complaint; from then on nothing is evaluated any more.
class PathEngine {
    template <auto Free> struct FreeWith {
        template <typename T> void operator()(T* object) const { Free(object); }
    };

public:
    struct Expression {
        std::unique_ptr<xmlXPathCompExpr, FreeWith<xmlXPathFreeCompExpr>> compiled; ///< nullptr: it is wrong
        bool joins = false;                                                         ///< see MayJoin
    };

    PathEngine(const XPathTree& tree, PathBudget& budget, const QString& path);

    Expression compile(const QString& text);
    /// Whether a node passes a condition, as the node at `position` (1-based) of `size`. False also with a
    /// complaint.
    bool passes(const Expression& condition, std::uint32_t id, std::size_t position, std::size_t size);
    /// Adds the numbers of the nodes that an expression selects from a node, in the engine's order; for an
    /// attribute its element's.
    void select(const Expression& expression, std::uint32_t id, std::vector<std::uint32_t>& ids);

    const QString& complaint() const { return complaint_; }
    void complain(const QString& words);

private:
    using Context = std::unique_ptr<xmlXPathContext, FreeWith<xmlXPathFreeContext>>;
    using Result = std::unique_ptr<xmlXPathObject, FreeWith<xmlXPathFreeObject>>;

    Result evaluate(const Expression& expression, std::uint32_t id);
    void registerPrefixes(QStringView path);

    const XPathTree& tree_;
    PathBudget& budget_;
    LibXmlScope scope_;
    Context context_;
    QString complaint_;
};

} // namespace xml
