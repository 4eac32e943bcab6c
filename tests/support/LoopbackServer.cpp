// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/LoopbackServer.h"
#include <arpa/inet.h>
#include <poll.h>
#include <stdexcept>
#include <sys/socket.h>
#include <unistd.h>
#include <vector>

namespace test {

namespace {

bool Readable(int socket, int milliseconds) {
    pollfd one{socket, POLLIN, 0};
    return poll(&one, 1, milliseconds) > 0;
}

QByteArray ReadRequest(int socket, const std::atomic<bool>& stop) {
    QByteArray request;
    char buffer[4096];
    while (!stop && !request.contains("\r\n\r\n")) {
        if (!Readable(socket, 20))
            continue;
        const ssize_t got = recv(socket, buffer, sizeof buffer, 0);
        if (got <= 0)
            break;
        request.append(buffer, got);
    }
    return request;
}

} // namespace

LoopbackServer::LoopbackServer(Answerer answerer) : answerer_(std::move(answerer)) {
    listener_ = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    if (bind(listener_, reinterpret_cast<sockaddr*>(&address), size) != 0 || listen(listener_, 16) != 0 ||
        getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &size) != 0)
        throw std::runtime_error("no loopback server");
    port_ = ntohs(address.sin_port);
    thread_ = std::thread([this] { Serve(); });
}

LoopbackServer::~LoopbackServer() {
    stop_ = true;
    thread_.join();
    close(listener_);
}

QString LoopbackServer::Url(const QString& path) const {
    return QStringLiteral("http://127.0.0.1:%1").arg(port_) + path;
}

void LoopbackServer::Serve() {
    std::vector<int> silent;
    while (!stop_) {
        if (!Readable(listener_, 20))
            continue;
        const int client = accept(listener_, nullptr, nullptr);
        if (client < 0)
            continue;
        ++requests_;
        const QByteArray answer = answerer_ ? answerer_(ReadRequest(client, stop_)) : QByteArray();
        if (answer.isNull()) {
            silent.push_back(client);
            continue;
        }
        if (send(client, answer.constData(), static_cast<std::size_t>(answer.size()), MSG_NOSIGNAL) >= 0)
            shutdown(client, SHUT_WR);
        close(client);
    }
    for (const int client : silent)
        close(client);
}

} // namespace test
