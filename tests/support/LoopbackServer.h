// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QByteArray>
#include <QString>
#include <atomic>
#include <functional>
#include <thread>

namespace test {

/// A real server on the loopback address, on a thread of its own, until it is destroyed. It reads each
/// request up to its blank line, sends what the answerer makes of it as it stands, and closes. Without an
/// answerer, or where it gives a null array, the server stays silent.
class LoopbackServer {
public:
    using Answerer = std::function<QByteArray(const QByteArray& request)>;
    explicit LoopbackServer(Answerer answerer);
    ~LoopbackServer();
    LoopbackServer(const LoopbackServer&) = delete;
    LoopbackServer& operator=(const LoopbackServer&) = delete;

    QString Url(const QString& path) const;
    int Requests() const { return requests_; }

private:
    void Serve();
    Answerer answerer_;
    int listener_ = -1;
    int port_ = 0;
    std::atomic<int> requests_ = 0;
    std::atomic<bool> stop_ = false;
    std::thread thread_;
};

} // namespace test
