// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/xml/PathWalk.h"
#include "platform/xml/XPathTree.h"
#include <algorithm>
#include <new>
#include <numeric>

namespace xml {

namespace {

constexpr unsigned Bit(NodeType type) {
    return 1U << type;
}

constexpr unsigned kContent =
    Bit(ELEMENT) | Bit(TEXT) | Bit(CDATA_SECTION) | Bit(COMMENT) | Bit(PROCESSING_INSTRUCTION);

void SortOnce(PathWalk::Ids& ids) {
    if (!std::is_sorted(ids.begin(), ids.end()))
        std::sort(ids.begin(), ids.end());
    ids.erase(std::unique(ids.begin(), ids.end()), ids.end());
}

} // namespace

PathEngine& PathWalk::engine() {
    if (!engine_) {
        if (!store_.xpathTree)
            store_.xpathTree = XPathTree::Make(store_);
        if (!store_.xpathTree)
            throw std::bad_alloc();
        engine_.emplace(*store_.xpathTree, budget_, path_);
        if (!complaint_.isEmpty())
            engine_->complain(complaint_);
    }
    return *engine_;
}

bool PathWalk::spend(std::size_t steps) {
    if (budget_.take(steps))
        return true;
    if (engine_)
        engine_->complain(PathTakesTooLong());
    else
        complaint_ = PathTakesTooLong();
    return false;
}

PathWalk::Ids PathWalk::run() {
    Ids all;
    for (const QString& branch : PathBranches(path_)) {
        const Ids ids = walkBranch(branch);
        if (failed())
            return {};
        all.insert(all.end(), ids.begin(), ids.end());
    }
    SortOnce(all);
    return all;
}

PathWalk::Ids PathWalk::walkBranch(const QString& branch) {
    const auto steps = ReadPath(branch);
    Ids ids = {0};
    if (!steps) {
        const auto whole = engine().compile(branch);
        ids.clear();
        engine().select(whole, 0, ids);
        SortOnce(ids);
        return ids;
    }
    for (const PathStep& step : *steps) {
        ids = takeStep(step, std::move(ids));
        SortOnce(ids);
        if (failed())
            return {};
    }
    return ids;
}

/// The step's nodes from a set of nodes, each once but in any order.
PathWalk::Ids PathWalk::takeStep(const PathStep& step, Ids from) {
    NodeTest test;
    if (step.kind == PathStep::Kind::Child && step.descend && step.conditions.empty())
        return nodeTest(step.test, test) ? takeDescendants(test, from) : Ids();
    if (step.descend) {
        NodeTest any;
        any.types = kContent;
        Ids below = takeDescendants(any, from);
        from.insert(from.end(), below.begin(), below.end());
        SortOnce(from);
    }
    switch (step.kind) {
    case PathStep::Kind::Child:
        return takeChildren(step, from);
    case PathStep::Kind::Attribute:
        return takeOwners(step, from);
    case PathStep::Kind::Parent:
        return takeParents(from);
    case PathStep::Kind::Axis:
        return takeAxis(step, from);
    default:
        return from;
    }
}

PathWalk::Ids PathWalk::takeChildren(const PathStep& step, const Ids& from) {
    std::vector<Condition> conditions;
    for (const PathCondition& condition : step.conditions) {
        conditions.push_back({condition.position, {}});
        if (condition.position == 0)
            conditions.back().expression = engine().compile(condition.text);
    }
    Ids found;
    NodeTest test;
    if (!nodeTest(step.test, test))
        return found;
    for (const std::uint32_t parent : from) {
        addChildren(parent, test, conditions, found);
        if (failed())
            return {};
    }
    return found;
}

void PathWalk::addChildren(std::uint32_t parent, const NodeTest& test, std::vector<Condition>& conditions,
                           Ids& found) {
    // The place among the matching children is the most frequent condition, and the search ends there.
    const bool placed = !conditions.empty() && conditions.front().position != 0;
    Ids ids = candidates(parent, test, placed ? conditions.front().position : 0);
    for (std::size_t i = placed ? 1 : 0; i < conditions.size(); ++i)
        filter(ids, conditions[i]);
    found.insert(found.end(), ids.begin(), ids.end());
}

/// The children that match, or the one of them at a position (0: all).
PathWalk::Ids PathWalk::candidates(std::uint32_t parent, const NodeTest& test, int position) const {
    Ids ids;
    std::uint32_t child = parent + 1;
    if (position < 0 || child >= store_.nodeCount || store_.nodes[child].parent != parent)
        return ids;
    int place = 0;
    for (; child != 0; child = store_.nodes[child].next) {
        if (!matches(test, child))
            continue;
        ++place;
        if (position == 0 || position == place)
            ids.push_back(child);
        if (position == place)
            break;
    }
    return ids;
}

void PathWalk::filter(Ids& ids, const Condition& condition) {
    if (condition.position != 0) {
        const auto place = static_cast<std::size_t>(condition.position);
        ids = condition.position > 0 && place <= ids.size() ? Ids{ids[place - 1]} : Ids();
        return;
    }
    std::size_t kept = 0;
    const std::size_t size = ids.size();
    for (std::size_t i = 0; i < size && !failed(); ++i) {
        if (engine().passes(condition.expression, ids[i], i + 1, size))
            ids[kept++] = ids[i];
    }
    ids.resize(kept);
}

/// Nodes are numbered in document order, so what stands below a node is one run of numbers.
PathWalk::Ids PathWalk::takeDescendants(const NodeTest& test, const Ids& from) {
    Ids found;
    std::uint32_t end = 0;
    for (const std::uint32_t top : from) {
        if (top < end)
            continue; // below one that was walked already
        end = endOf(top);
        if (!spend(end - top))
            return {};
        for (std::uint32_t id = top + 1; id < end; ++id) {
            if (matches(test, id))
                found.push_back(id);
        }
    }
    return found;
}

PathWalk::Ids PathWalk::takeParents(const Ids& from) const {
    Ids found;
    for (const std::uint32_t id : from) {
        if (id != 0)
            found.push_back(store_.nodes[id].parent);
    }
    return found;
}

/// The elements that have a matching attribute.
PathWalk::Ids PathWalk::takeOwners(const PathStep& step, const Ids& from) const {
    Ids found;
    NodeTest test;
    if (!nodeTest(step.test, test))
        return found;
    for (const std::uint32_t id : from) {
        const NodeRecord& node = store_.nodes[id];
        const std::uint32_t count = node.type == ELEMENT ? node.attributeCount : 0;
        for (std::uint32_t i = 0; i < count; ++i) {
            if (!matchesName(test, store_.attributes[node.value + i].nameId))
                continue;
            found.push_back(id);
            break;
        }
    }
    return found;
}

PathWalk::Ids PathWalk::takeAxis(const PathStep& step, const Ids& from) {
    PathEngine::Expression expression = engine().compile(step.text);
    // From one node one step joins nothing; only its conditions may.
    expression.joins = std::any_of(step.conditions.begin(), step.conditions.end(),
                                   [](const PathCondition& c) { return MayJoin(c.text); });
    Ids found;
    for (const std::uint32_t id : from) {
        engine().select(expression, id, found);
        if (failed())
            return {};
    }
    return found;
}

/// False: nothing in the document has that name.
bool PathWalk::nodeTest(const QString& text, NodeTest& test) const {
    test.types = Bit(ELEMENT);
    if (text == u"*")
        return true;
    if (text.endsWith(u":*")) {
        test.prefix = text.chopped(1);
        return true;
    }
    if (!text.endsWith(u')')) {
        test.name = store_.findName(text);
        return test.name.has_value();
    }
    test.types = text == u"text()"      ? Bit(TEXT) | Bit(CDATA_SECTION)
                 : text == u"comment()" ? Bit(COMMENT)
                 : text == u"node()"    ? kContent
                                        : Bit(PROCESSING_INSTRUCTION);
    return true;
}

bool PathWalk::matches(const NodeTest& test, std::uint32_t id) const {
    const NodeRecord& node = store_.nodes[id];
    return ((test.types >> node.type) & 1U) != 0 && matchesName(test, node.name);
}

bool PathWalk::matchesName(const NodeTest& test, std::uint32_t nameId) const {
    if (test.name)
        return *test.name == nameId;
    if (test.prefix.isEmpty())
        return true;
    const QString& name = store_.names[nameId];
    return name.size() > test.prefix.size() && name.startsWith(test.prefix);
}

/// The first number behind a node and all below it.
std::uint32_t PathWalk::endOf(std::uint32_t id) const {
    while (id != 0 && store_.nodes[id].next == 0)
        id = store_.nodes[id].parent;
    return id == 0 ? store_.nodeCount : store_.nodes[id].next;
}

} // namespace xml
