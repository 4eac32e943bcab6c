// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/xml/DocumentStore.h"
#include <cstdint>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace xml {

/// What the rules for namespaces find wrong.
struct NamespaceFault {
    int code = 0;           ///< 0: nothing
    std::uint32_t name = 0; ///< the name that is to blame
    explicit operator bool() const { return code != 0; }
};

/// The namespace declarations in scope while a document is read, and the check of all names against them.
/// Each name is taken apart once, by its number; an element costs a look at the numbers of its names.
class NamespaceScope {
public:
    /// The names and values that it is shown are those of the store.
    explicit NamespaceScope(const DocumentStore& store);

    /// Enters an element with these attributes, declared defaults among them. After a fault the scope is of
    /// no more use.
    NamespaceFault enter(std::uint32_t element, const std::vector<Attribute>& attributes);
    /// Leaves the element that was entered last.
    void leave();

    /// What is wrong with the mere form of an element's or attribute's name; a code or 0.
    int faultOfForm(std::uint32_t name);

private:
    using Word = std::uint32_t;  ///< number of a prefix or local part
    using Space = std::uint32_t; ///< the Ref of a namespace's name where it was first met; 0: none

    static constexpr Word kNone = 0, kXml = 1, kXmlns = 2;
    static constexpr Space kXmlSpace = ~Space{0};

    /// A name taken apart. That of a default declaration ("xmlns") has that prefix and no local part.
    struct Parts {
        Word prefix = kNone;
        Word local = kNone; ///< only of names with a prefix
        int fault = 0;
        bool arePlain() const { return prefix == kNone && fault == 0; }
    };
    struct Hidden {
        Word prefix;
        Space space;
        std::size_t depth; ///< of the element that declares the prefix anew
    };
    struct Prefixed {
        Parts parts;
        Space space;
        std::uint32_t name;
        std::size_t order;
    };
    struct HashOfValue {
        const text::StringPool& texts;
        std::size_t operator()(text::StringPool::Ref ref) const;
    };
    struct SameValue {
        const text::StringPool& texts;
        bool operator()(text::StringPool::Ref a, text::StringPool::Ref b) const {
            return texts.view(a) == texts.view(b);
        }
    };

    void learnNames();
    Parts takeApart(QStringView name);
    Word word(QStringView part);
    NamespaceFault readAttributes(const std::vector<Attribute>& attributes);
    int declare(Word prefix, text::StringPool::Ref value);
    NamespaceFault checkPrefixed();
    NamespaceFault findSame();

    const DocumentStore& store_;
    std::vector<Parts> parts_; ///< by the number of a name
    std::unordered_map<QString, Word> words_;
    std::vector<Space> bound_; ///< by the number of a prefix
    std::vector<Hidden> hidden_;
    std::unordered_set<text::StringPool::Ref, HashOfValue, SameValue> spaces_;
    std::vector<Prefixed> prefixed_; ///< attributes of the element at hand
    std::size_t depth_ = 0;
};

} // namespace xml
