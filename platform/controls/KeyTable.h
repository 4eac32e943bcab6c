// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/NodeStore.h"
#include <QHash>
#include <array>
#include <optional>
#include <unordered_map>

namespace controls {

/// From a key to its node and back. Keys of the form <number>number take no string: the two numbers stand in
/// the node, and pages of serial numbers name the slot. Serials are handed out one by one, so pages are full
/// and neighbours lie together.
class KeyTable {
public:
    explicit KeyTable(const NodeStore& nodes) : nodes_(nodes) {}

    std::uint32_t find(const QString& key) const; ///< slot, 0 for an unknown key
    QString keyOf(const TreeNodeData& node) const;
    /// Gives the node a key. False, and nothing is changed, when a node has it.
    bool insert(std::uint32_t slot, const QString& key);
    /// The same for the key "<kind>serial" of a node that needn't exist yet: the caller writes both numbers
    /// into it.
    bool claim(std::uint32_t slot, std::uint8_t kind, std::uint32_t serial);
    void remove(std::uint32_t slot); ///< takes the node's key out; the node's fields stay
    void clear();
    std::size_t bytes() const;

private:
    static constexpr std::uint32_t kPage = 1024;
    struct Page {
        std::array<std::uint32_t, kPage> slots{}; ///< 0: no node
        std::uint32_t used = 0;
    };
    struct Packed {
        std::uint8_t kind;
        std::uint32_t serial;
        quint64 whole() const { return (quint64{kind} << 32) | serial; }
    };
    static std::optional<Packed> pack(QStringView key);
    std::uint32_t findPacked(Packed key) const;
    Page* page(std::uint32_t number) const;

    const NodeStore& nodes_;
    std::unordered_map<std::uint32_t, std::unique_ptr<Page>> pages_;
    mutable std::uint32_t lastNumber_ = 0; ///< the page used last, which is nearly always the next one
    mutable Page* lastPage_ = nullptr;
    QHash<quint64, std::uint32_t> twins_; ///< nodes whose serial another kind holds on the page
    QHash<QString, std::uint32_t> odd_;   ///< keys of other shapes: slot
    std::vector<QString> oddKeys_;        ///< such keys by the number that stands in the node
    std::vector<std::uint32_t> freeOdd_;  ///< unused places of oddKeys_
};

} // namespace controls
