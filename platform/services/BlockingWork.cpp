// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/BlockingWork.h"
#include <chrono>
#include <condition_variable>
#include <future>
#include <mutex>
#include <thread>

namespace services {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

struct BlockingWork::Shared {
    std::mutex mutex;
    std::condition_variable changed;
    std::function<void()> work; ///< waiting or running; none: the thread is idle
    bool ended = false;         ///< the owner is gone
    std::thread::id id;         ///< of the thread; known before it has work

    void Run() {
        std::unique_lock lock(mutex);
        for (;;) {
            changed.wait(lock, [this] { return work || ended; });
            if (!work)
                return;
            lock.unlock();
            work();
            std::function<void()> done;
            lock.lock();
            std::swap(done, work);
            changed.notify_all();
            lock.unlock();
            done = {}; // what only it held goes without the lock
            lock.lock();
        }
    }
};

BlockingWork::BlockingWork() : shared_(std::make_shared<Shared>()) {
    std::thread thread([shared = shared_] { shared->Run(); });
    const std::lock_guard lock(shared_->mutex);
    shared_->id = thread.get_id();
    thread.detach();
}

BlockingWork::~BlockingWork() {
    const std::lock_guard lock(shared_->mutex);
    shared_->ended = true;
    shared_->changed.notify_all();
}

void BlockingWork::Start(std::function<void()> work) {
    const std::lock_guard lock(shared_->mutex);
    shared_->work = std::move(work);
    shared_->changed.notify_all();
}

bool BlockingWork::WaitFor(int time) const {
    std::unique_lock lock(shared_->mutex);
    return shared_->changed.wait_for(lock, milliseconds(time), [this] { return !shared_->work; });
}

bool BlockingWork::IsIdle() const {
    return WaitFor(0);
}

bool BlockingWork::IsOwnThread() const {
    const std::lock_guard lock(shared_->mutex);
    return shared_->id == std::this_thread::get_id();
}

// Whether the work ended, and nothing is under way any more that could end the next one.
bool BlockingWork::Ask(std::function<void()> cancel, int time) {
    const auto asked = std::make_shared<std::promise<void>>();
    std::future<void> answered = asked->get_future();
    std::thread([asked, cancel = std::move(cancel)]() mutable {
        cancel();
        cancel = {};
        asked->set_value();
    }).detach();
    return WaitFor(time) && answered.wait_for(milliseconds(time)) == std::future_status::ready;
}

BlockingWork::End BlockingWork::Wait(const std::function<bool(qint64, qint64)>& step, int seconds,
                                     const std::function<void()>& cancel) {
    constexpr int kStep = 50, kGrace = 2000; // milliseconds
    const auto begun = steady_clock::now();
    while (!WaitFor(kStep)) {
        const bool late = seconds > 0 && steady_clock::now() - begun > std::chrono::seconds(seconds);
        if (!late && (!step || step(0, 0)))
            continue;
        lost_ = !cancel || !Ask(cancel, kGrace);
        return late ? End::TimedOut : End::Cancelled;
    }
    return End::Done;
}

} // namespace services
