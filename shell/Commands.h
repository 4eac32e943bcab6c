// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/edit/Command.h"
#include "shell/FrameParts.h"
#include <deque>
#include <functional>
#include <span>
#include <vector>

namespace shell {

/// The commands of all rooms, collected from their tables.
class Commands {
public:
    explicit Commands(FrameParts& frame);
    Commands(const Commands&) = delete;
    Commands& operator=(const Commands&) = delete;

    /// Joins menu entries and buttons to what they run and marks them so; a fault that gets out of a command
    /// is reported under its handler's name. A command on the document needs a window in front.
    void Connect();
    std::vector<const edit::Offer*> Offers() const; ///< they stay where they are

private:
    struct Row {
        const edit::Offer* offer;
        std::function<void(int index)> run; ///< none for a command that isn't there yet
    };
    void AddViews();
    void AddCommands(std::span<const edit::Command> commands);
    void ConnectEntries(const Row& row);
    void ConnectButton(const Row& row);
    void RunFirstOffered(const edit::Button& button) const;
    bool IsOffered(const Row& row) const;

    FrameParts& frame_;
    std::deque<edit::Offer> views_; ///< one for each view's menu entry
    std::vector<Row> rows_;
};

} // namespace shell
