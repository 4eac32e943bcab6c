// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/xml/DocumentStore.h"
#include "platform/xml/PathEngine.h"
#include "platform/xml/PathSteps.h"
#include <QString>
#include <cstdint>
#include <optional>
#include <vector>

namespace xml {

/// Evaluates a path step by step on the document itself. The engine is asked for no more than conditions and
/// written axes, from one node at a time: its own way of joining the sets of many nodes takes minutes on a
/// large document, and plain paths, which are asked for after each change of a text, don't need its tree at
/// all. A path that is more than steps goes to the engine as a whole.
class PathWalk {
public:
    using Ids = std::vector<std::uint32_t>;

    PathWalk(DocumentStore& store, const QString& path)
        : store_(store), path_(path), budget_(store.nodeCount) {}

    /// Numbers of the nodes, ascending, each once; an attribute stands for its element. Nothing with a
    /// complaint. Throws std::bad_alloc.
    Ids run();
    /// What is wrong with the path; empty when nothing is.
    QString complaint() const { return engine_ ? engine_->complaint() : complaint_; }

private:
    /// A condition as it is asked of a node.
    struct Condition {
        int position;
        PathEngine::Expression expression;
    };
    /// Which nodes a name or a test such as text() means.
    struct NodeTest {
        unsigned types = 0;                ///< one bit for each NodeType
        std::optional<std::uint32_t> name; ///< only this name
        QString prefix;                    ///< with its colon; only names that start with it
    };

    Ids walkBranch(const QString& branch);
    Ids takeStep(const PathStep& step, Ids from);
    Ids takeChildren(const PathStep& step, const Ids& from);
    Ids takeDescendants(const NodeTest& test, const Ids& from);
    Ids takeParents(const Ids& from) const;
    Ids takeOwners(const PathStep& step, const Ids& from) const;
    Ids takeAxis(const PathStep& step, const Ids& from);
    void addChildren(std::uint32_t parent, const NodeTest& test, std::vector<Condition>& conditions,
                     Ids& found);
    Ids candidates(std::uint32_t parent, const NodeTest& test, int position) const;
    void filter(Ids& ids, const Condition& condition);

    bool nodeTest(const QString& text, NodeTest& test) const;
    bool matches(const NodeTest& test, std::uint32_t id) const;
    bool matchesName(const NodeTest& test, std::uint32_t nameId) const;
    std::uint32_t endOf(std::uint32_t id) const;
    bool spend(std::size_t steps);
    bool failed() const { return !complaint().isEmpty(); }
    PathEngine& engine();

    DocumentStore& store_;
    const QString& path_;
    PathBudget budget_;
    std::optional<PathEngine> engine_; ///< made when it is first asked
    QString complaint_;                ///< before there is an engine
};

} // namespace xml
