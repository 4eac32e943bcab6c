// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "schema/infer/ValueFacts.h"
#include <QHash>
#include <QString>
#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <tuple>
#include <unordered_set>
#include <utility>
#include <vector>

namespace schema {

/// A name with its namespace, which may be none.
struct ExpandedName {
    QString space, local;
    bool operator==(const ExpandedName&) const = default;
    bool operator<(const ExpandedName& other) const {
        return std::tie(space, local) < std::tie(other.space, other.local);
    }
};

/// What was seen of one child of an element.
struct ChildFacts {
    std::uint32_t element = 0;         ///< its number
    std::uint64_t parents = 0;         ///< elements that have it
    std::uint32_t least = 0, most = 0; ///< how often, in those
};

/// The order of an element's children, over all elements of its name. Children are numbered as they came.
struct OrderFacts {
    static constexpr std::uint32_t kMostChildren = 100; ///< different ones; beyond, order isn't looked at
    static constexpr std::size_t kMostProfiles = 200;

    std::vector<ChildFacts> children;
    QHash<std::uint32_t, std::uint32_t> numbers; ///< child by element
    std::vector<std::vector<bool>> follows;      ///< the second directly behind the first
    /// Which children come together: for each, its number twice, one more where it comes several times.
    std::set<std::vector<std::uint32_t>> profiles;
    bool manyProfiles = false; ///< more than are kept
    bool IsWide() const { return children.size() > kMostChildren; }
    /// So many that checks by a list of them take long.
    bool IsVeryWide() const { return children.size() > 3 * kMostChildren; }

    std::uint32_t NumberOf(std::uint32_t element);
};

/// What is known of the elements of one name.
struct ElementFacts {
    ExpandedName name;
    std::uint64_t count = 0; ///< with content: those that are nil not counted
    bool nil = false;        ///< some are
    bool text = false;       ///< some have text
    bool mixed = false;      ///< and children beside it, or others have
    bool typed = false;      ///< some name their type
    bool root = false;       ///< some document begins with it
    OrderFacts order;
    ValueFacts values;
    struct AttributeFacts {
        std::uint64_t count = 0;
        std::uint32_t values = 0; ///< number among all, of attributes of no or of some namespace
    };
    std::map<ExpandedName, AttributeFacts> attributes;
    std::uint64_t all = 0;           ///< elements, the nil ones, too
    std::set<std::uint32_t> parents; ///< elements it stands in
};

/// All that is known of documents: its size goes with their different names, not with their length.
struct DocumentFacts {
    static constexpr std::size_t kMostElements = 20000; ///< different names

    std::vector<std::unique_ptr<ElementFacts>> elements;
    std::map<ExpandedName, std::uint32_t> numbers;
    std::vector<std::unique_ptr<ValueFacts>> values;        ///< of attributes
    std::map<ExpandedName, std::uint32_t> globalAttributes; ///< those with a namespace: their values
    std::vector<std::uint32_t> roots;                       ///< of the documents, each once
    bool tooMany = false;

    std::uint32_t NumberOf(const ExpandedName& name);
    bool HaveEmptyElements() const; ///< some never have anything between their tags, as far as is known
    bool IsXsi(const QString& space) const { return space == QLatin1String(kXsi); }

    static constexpr char kXsi[] = "http://www.w3.org/2001/XMLSchema-instance";
    static constexpr char kXml[] = "http://www.w3.org/XML/1998/namespace";
};

} // namespace schema
