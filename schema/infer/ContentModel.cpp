// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/infer/ContentModel.h"
#include <algorithm>
#include <map>
#include <numeric>

namespace schema {

namespace {

using Row = std::vector<bool>;
using Classes = std::vector<std::vector<std::uint32_t>>;

constexpr std::uint64_t kSureCount = 3; // elements with the same number of a child make that the rule

// What can come behind what, in whatever distance.
std::vector<Row> Closed(std::vector<Row> follows) {
    for (std::size_t between = 0; between < follows.size(); ++between) {
        for (std::size_t from = 0; from < follows.size(); ++from) {
            if (!follows[from][between])
                continue;
            for (std::size_t to = 0; to < follows.size(); ++to) {
                if (follows[between][to])
                    follows[from][to] = true;
            }
        }
    }
    return follows;
}

/// Children that come before and behind each other have no order: they stand in one place. The others have
/// one, or never come together.
class Places {
public:
    explicit Places(const OrderFacts& order) : before_(Closed(order.follows)) {
        for (std::uint32_t child = 0; child < before_.size(); ++child) {
            const auto same = std::find_if(classes_.begin(), classes_.end(), [&](const auto& one) {
                return before_[one[0]][child] && before_[child][one[0]];
            });
            if (same == classes_.end())
                classes_.push_back({child});
            else
                same->push_back(child);
        }
        while (JoinAlternatives()) {
        }
    }

    /// In an order in which each comes behind all that were seen before it.
    Classes InOrder() const {
        Classes sorted;
        std::vector<bool> done(classes_.size());
        while (sorted.size() < classes_.size()) {
            std::size_t next = 0;
            while (next < classes_.size() && !IsReady(next, done))
                ++next;
            if (next == classes_.size())
                break;
            done[next] = true;
            sorted.push_back(classes_[next]);
        }
        return sorted;
    }

private:
    bool IsReady(std::size_t one, const std::vector<bool>& done) const {
        if (done[one])
            return false;
        for (std::size_t other = 0; other < classes_.size(); ++other) {
            if (other != one && !done[other] && IsBefore(other, one))
                return false;
        }
        return true;
    }
    bool IsBefore(std::size_t one, std::size_t other) const {
        for (const std::uint32_t a : classes_[one]) {
            for (const std::uint32_t b : classes_[other]) {
                if (before_[a][b])
                    return true;
            }
        }
        return false;
    }
    // Those with nothing between them.
    std::pair<Row, Row> Neighbours(std::size_t one) const {
        Row before(classes_.size()), behind(classes_.size());
        for (std::size_t other = 0; other < classes_.size(); ++other) {
            if (other == one)
                continue;
            before[other] = IsBefore(other, one) && !HasBetween(other, one);
            behind[other] = IsBefore(one, other) && !HasBetween(one, other);
        }
        return {before, behind};
    }
    bool HasBetween(std::size_t first, std::size_t last) const {
        for (std::size_t middle = 0; middle < classes_.size(); ++middle) {
            if (middle != first && middle != last && IsBefore(first, middle) && IsBefore(middle, last))
                return true;
        }
        return false;
    }
    // Single children between the same others that never come together are a choice.
    bool JoinAlternatives() {
        std::map<std::pair<Row, Row>, std::size_t> met;
        for (std::size_t i = 0; i < classes_.size(); ++i) {
            if (classes_[i].size() > 1 || joined_.contains(classes_[i][0]))
                continue;
            const auto [at, added] = met.try_emplace(Neighbours(i), i);
            if (added)
                continue;
            classes_[at->second].push_back(classes_[i][0]);
            joined_.insert(classes_[at->second].begin(), classes_[at->second].end());
            for (std::size_t j = i + 1; j < classes_.size(); ++j) {
                if (classes_[j].size() == 1 && Neighbours(j) == at->first)
                    alike_.push_back(classes_[j][0]);
            }
            classes_.erase(classes_.begin() + static_cast<std::ptrdiff_t>(i));
            TakeAlike(at->second);
            return true;
        }
        return false;
    }
    void TakeAlike(std::size_t into) {
        for (const std::uint32_t child : alike_) {
            const auto own = std::find(classes_.begin(), classes_.end(), std::vector<std::uint32_t>{child});
            classes_[into].push_back(child);
            joined_.insert(child);
            classes_.erase(own);
        }
        alike_.clear();
    }

    std::vector<Row> before_;
    Classes classes_;
    std::set<std::uint32_t> joined_;
    std::vector<std::uint32_t> alike_;
};

Factor FactorOfOne(const ChildFacts& child, std::uint32_t number, std::uint64_t count) {
    const bool always = child.parents == count;
    if (always && child.least == child.most && (child.most == 1 || count >= kSureCount))
        return {{number}, child.least, child.most};
    return {{number}, always ? 1U : 0U, child.most > 1 ? Factor::kMany : 1U};
}

// How many of the children of a place come in one element, at least and at most; 2 stands for several.
Factor FactorOfSeveral(const OrderFacts& order, const std::vector<std::uint32_t>& children,
                       std::uint64_t count) {
    Factor factor{children, 2, 1};
    const auto always = std::find_if(children.begin(), children.end(), [&](std::uint32_t child) {
        return order.children[child].parents == count;
    });
    if (order.manyProfiles)
        return {children, always == children.end() ? 0U : 1U, Factor::kMany};
    std::uint32_t most = 0;
    for (const std::vector<std::uint32_t>& profile : order.profiles) {
        std::uint32_t sum = 0;
        for (const std::uint32_t one : profile) {
            if (std::find(children.begin(), children.end(), one / 2) != children.end())
                sum += 1 + one % 2;
        }
        factor.least = std::min(factor.least, sum);
        most = std::max(most, sum);
    }
    factor.least = std::min(factor.least, 1U);
    factor.most = most > 1 ? Factor::kMany : 1;
    return factor;
}

ContentModel AnyOrder(const OrderFacts& order) {
    ContentModel model;
    Factor& factor = model.factors.emplace_back();
    factor.children.resize(order.children.size());
    std::iota(factor.children.begin(), factor.children.end(), 0U);
    factor.most = Factor::kMany;
    return model;
}

bool ComeOnceAtMost(const OrderFacts& order) {
    return std::all_of(order.children.begin(), order.children.end(),
                       [](const ChildFacts& child) { return child.most == 1; });
}

} // namespace

ContentModel ContentModelOf(const OrderFacts& order, std::uint64_t count) {
    if (order.IsWide())
        return AnyOrder(order);
    const Classes classes = Places(order).InOrder();
    const auto placed = std::accumulate(classes.begin(), classes.end(), std::size_t(0),
                                        [](std::size_t sum, const auto& one) { return sum + one.size(); });
    if (placed < order.children.size())
        return AnyOrder(order);
    ContentModel model;
    model.all = classes.size() == 1 && classes[0].size() > 1 && ComeOnceAtMost(order) &&
                FactorOfSeveral(order, classes[0], count).most == Factor::kMany;
    if (model.all) {
        for (std::uint32_t child = 0; child < order.children.size(); ++child)
            model.factors.push_back(FactorOfOne(order.children[child], child, count));
        return model;
    }
    for (const std::vector<std::uint32_t>& one : classes) {
        model.factors.push_back(one.size() == 1 ? FactorOfOne(order.children[one[0]], one[0], count)
                                                : FactorOfSeveral(order, one, count));
    }
    return model;
}

} // namespace schema
