// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/RealServices.h"
#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkProxyFactory>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>
#include <QUrl>
#include <new>

namespace services {

namespace {

using Step = std::function<bool(qint64, qint64)>;

constexpr qint64 kMostBytes = qint64{2} << 30;
constexpr int kMostRedirects = 20;
constexpr int kStepMilliseconds = 50;

/// The charset parameter of a Content-Type, with or without quotes.
QString CharsetOf(const QString& contentType) {
    for (const QString& part : contentType.split(u';').mid(1)) {
        const qsizetype equals = part.indexOf(u'=');
        if (equals < 0 || part.first(equals).trimmed().compare(u"charset", Qt::CaseInsensitive) != 0)
            continue;
        QString value = part.sliced(equals + 1).trimmed();
        if (value.size() >= 2 && value.startsWith(u'"') && value.endsWith(u'"'))
            value = value.sliced(1, value.size() - 2);
        return value;
    }
    return {};
}

// The same port, too, but for the step from the usual one to the safe one's.
bool IsWithinHost(const QUrl& from, const QUrl& to) {
    const bool safer =
        from.scheme() == u"http" && to.scheme() == u"https" && from.port() < 0 && to.port() < 0;
    return from.host() == to.host() && (safer || (from.scheme() == to.scheme() && from.port() == to.port()));
}

QNetworkRequest RequestFor(const QUrl& url, Redirects redirects) {
    QNetworkRequest request(url);
    request.setHeader(QNetworkRequest::UserAgentHeader, QStringLiteral("Vantrel"));
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         redirects == Redirects::Anywhere ? QNetworkRequest::NoLessSafeRedirectPolicy
                                                          : QNetworkRequest::UserVerifiedRedirectPolicy);
    request.setMaximumRedirectsAllowed(kMostRedirects);
    // XML shrinks well beyond the ratio that Qt takes for an attack; the bound on the body serves instead.
    request.setDecompressedSafetyCheckThreshold(-1);
    return request;
}

/// One request while it runs.
class Transfer {
public:
    Transfer(QNetworkReply& reply, const Step& step, Redirects redirects)
        : reply_(reply), step_(step), redirects_(redirects), asked_(reply.url()) {}

    HttpAnswer Run() {
        QTimer timer;
        timer.setInterval(kStepMilliseconds);
        QObject::connect(&timer, &QTimer::timeout, &loop_, [this] { TakeStep(); });
        QObject::connect(&reply_, &QNetworkReply::readyRead, &loop_, [this] { TakeBytes(); });
        QObject::connect(&reply_, &QNetworkReply::redirected, &loop_,
                         [this](const QUrl& to) { TakeRedirect(to); });
        QObject::connect(&reply_, &QNetworkReply::finished, &loop_, [this] { loop_.quit(); });
        QObject::connect(&reply_, &QNetworkReply::downloadProgress, &loop_,
                         [this](qint64, qint64 total) { expected_ = std::max<qint64>(total, 0); });
        timer.start();
        // The windows get no input meanwhile; the step looks after its own Cancel button.
        if (!reply_.isFinished())
            loop_.exec(QEventLoop::ExcludeUserInputEvents);
        timer.stop();
        if (!reply_.isFinished()) { // the program is about to end
            answer_.cancelled = true;
            reply_.abort();
        }
        TakeBytes();
        if (outOfMemory_)
            throw std::bad_alloc();
        Judge();
        return std::move(answer_);
    }

private:
    void TakeStep() {
        if (inStep_ || !step_)
            return;
        inStep_ = true; // the step may handle events, this timer's among them
        const bool goOn = step_(answer_.body.size(), expected_);
        inStep_ = false;
        if (!goOn && !reply_.isFinished()) {
            answer_.cancelled = true;
            reply_.abort();
        }
    }

    void TakeRedirect(const QUrl& to) {
        if (redirects_ == Redirects::Anywhere)
            return;
        if (IsWithinHost(asked_, to)) {
            asked_ = to;
            Q_EMIT reply_.redirectAllowed();
        } else {
            answer_.movedTo = to.toString();
            reply_.abort();
        }
    }

    void TakeBytes() {
        if (tooLarge_ || outOfMemory_ || !reply_.isOpen()) // closed by an abort
            return;
        try {
            answer_.body += reply_.readAll();
        } catch (const std::bad_alloc&) { // an answer with a part missing is no answer
            outOfMemory_ = true;
            answer_.body = {};
            if (!reply_.isFinished())
                reply_.abort();
            return;
        }
        tooLarge_ = answer_.body.size() > kMostBytes;
        if (tooLarge_ && !reply_.isFinished())
            reply_.abort();
    }

    /// Whether fewer bytes came than the server announced. Of a packed body and of one sent in chunks the
    /// length isn't known here: for those Qt's own judgement has to do.
    bool IsCut() const {
        const bool packed = !reply_.rawHeader("Content-Encoding").isEmpty();
        const QVariant length = reply_.header(QNetworkRequest::ContentLengthHeader);
        return !packed && length.isValid() && answer_.body.size() < length.toLongLong();
    }

    void Judge() {
        const QNetworkReply::NetworkError error = reply_.error();
        answer_.status = reply_.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
        answer_.address = reply_.url().toString();
        answer_.charset = CharsetOf(reply_.header(QNetworkRequest::ContentTypeHeader).toString());
        // Where no server answers the resource can't be located; a server that answers "not found" has been.
        answer_.cannotLocate =
            error == QNetworkReply::HostNotFoundError || error == QNetworkReply::ConnectionRefusedError;
        if (answer_.cancelled)
            answer_.error = QStringLiteral("The request was cancelled.");
        else if (!answer_.movedTo.isEmpty())
            answer_.error = QStringLiteral("It has moved to ") + answer_.movedTo;
        else if (tooLarge_)
            answer_.error = QStringLiteral("The answer is too large.");
        else if (error != QNetworkReply::NoError)
            answer_.error = reply_.errorString();
        else if (IsCut())
            answer_.error = QStringLiteral("The connection was closed before the whole answer had come.");
        answer_.ok = answer_.error.isEmpty() && answer_.status < 400;
        if (answer_.cancelled || tooLarge_)
            answer_.body.clear();
    }

    QNetworkReply& reply_;
    const Step& step_;
    const Redirects redirects_;
    QUrl asked_; ///< the address that the request is at by now
    QEventLoop loop_;
    HttpAnswer answer_;
    qint64 expected_ = 0;
    bool inStep_ = false;
    bool tooLarge_ = false;
    bool outOfMemory_ = false;
};

class HttpGet : public HttpClient {
public:
    HttpGet() { QNetworkProxyFactory::setUseSystemConfiguration(true); }

    HttpAnswer Get(const QString& address, const Step& step, Redirects redirects) override {
        const QUrl url(address.trimmed(), QUrl::TolerantMode);
        const QString scheme = url.scheme(); // in lower case already
        if (!url.isValid() || url.host().isEmpty() || (scheme != u"http" && scheme != u"https")) {
            HttpAnswer answer;
            answer.error = QStringLiteral("It's not a valid web address.");
            return answer;
        }
        // Made anew for each request: a connection kept from the last one may have gone half dead meanwhile.
        QNetworkAccessManager manager;
        const std::unique_ptr<QNetworkReply> reply(manager.get(RequestFor(url, redirects)));
        return Transfer(*reply, step, redirects).Run();
    }
};

} // namespace

std::unique_ptr<HttpClient> MakeHttpClient() {
    return std::make_unique<HttpGet>();
}

} // namespace services
