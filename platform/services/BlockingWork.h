// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QtGlobal>
#include <atomic>
#include <functional>
#include <memory>

namespace services {

/// A thread that runs what may block, one piece of work at a time, while its owner goes on or waits. What
/// doesn't come back can be left alone: the thread then ends by itself, so whatever the work touches must
/// belong to it.
class BlockingWork {
public:
    enum class End { Done, Cancelled, TimedOut };

    BlockingWork();
    ~BlockingWork();
    BlockingWork(const BlockingWork&) = delete;
    BlockingWork& operator=(const BlockingWork&) = delete;

    /// Begins a piece of work. The one before must have been waited for.
    void Start(std::function<void()> work);
    /// Waits for its end. `step` is asked every 50 ms, and false, or more than `seconds` (0: any number),
    /// stops the work: `cancel` asks it to end, from a thread of its own since that may block, too. Work and
    /// asking are left alone where they don't end within two seconds, and no other work can be started then.
    /// `cancel` must hold what it uses.
    End Wait(const std::function<bool(qint64, qint64)>& step, int seconds,
             const std::function<void()>& cancel);
    bool IsLost() const { return lost_; }
    bool IsIdle() const;      ///< nothing runs, and nothing waits to
    bool IsOwnThread() const; ///< called from within the work

private:
    struct Shared;
    bool WaitFor(int milliseconds) const;
    bool Ask(std::function<void()> cancel, int milliseconds);
    std::shared_ptr<Shared> shared_;
    std::atomic<bool> lost_ = false; ///< the work may ask, too
};

} // namespace services
