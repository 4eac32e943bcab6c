// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/RealServices.h"
#include "tests/support/LoopbackServer.h"
#include <QHash>
#include <QTcpServer>
#include <gtest/gtest.h>

using services::HttpAnswer;

namespace {

QByteArray Ok(const QByteArray& headers, const QByteArray& body) {
    return "HTTP/1.1 200 OK\r\nConnection: close\r\n" + headers +
           "Content-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" + body;
}

QByteArray RedirectTo(const QString& url) {
    return "HTTP/1.1 302 Found\r\nConnection: close\r\nContent-Length: 0\r\nLocation: " + url.toLatin1() +
           "\r\n\r\n";
}

class HttpGet : public testing::Test {
protected:
    QHash<QByteArray, QByteArray> pages; ///< what the server sends, by path; nothing ever for another one
    test::LoopbackServer server{
        [this](const QByteArray& request) { return pages.value(request.split(' ').value(1)); }};
    std::unique_ptr<services::HttpClient> http = services::MakeHttpClient();
    HttpAnswer Get(const QString& url) {
        return http->Get(url, [](qint64, qint64) { return true; });
    }
};

} // namespace

TEST_F(HttpGet, GivesTheBodyAndItsCharset) {
    pages["/a.xml"] = Ok("Content-Type: text/xml; boundary=x; Charset=\"gb2312\"\r\n", "<a>\xB1\xB1</a>");
    pages["/empty"] = Ok("", "");
    const HttpAnswer answer = Get(u"  "_qs + server.Url(u"/a.xml"_qs));
    EXPECT_TRUE(answer.ok) << answer.error.toStdString();
    EXPECT_EQ(answer.status, 200);
    EXPECT_EQ(answer.body, "<a>\xB1\xB1</a>");
    EXPECT_EQ(answer.charset, u"gb2312"_qs);
    const HttpAnswer empty = Get(server.Url(u"/empty"_qs));
    EXPECT_TRUE(empty.ok);
    EXPECT_TRUE(empty.body.isEmpty());
    EXPECT_TRUE(empty.charset.isEmpty());
}

TEST_F(HttpGet, AnErrorOfTheServerComesWithItsBody) {
    for (const int status : {404, 500}) {
        pages["/bad"] = "HTTP/1.1 " + QByteArray::number(status) +
                        " Bad\r\nConnection: close\r\nContent-Length: 5\r\n\r\n<no/>";
        const HttpAnswer answer = Get(server.Url(u"/bad"_qs));
        EXPECT_FALSE(answer.ok);
        EXPECT_FALSE(answer.cannotLocate);
        EXPECT_EQ(answer.status, status);
        EXPECT_EQ(answer.body, "<no/>");
        EXPECT_FALSE(answer.error.isEmpty());
    }
}

TEST_F(HttpGet, FollowsRedirectsButNotInCirclesOrToFiles) {
    pages["/a.xml"] = Ok("", "<a/>");
    pages["/moved"] = RedirectTo(u"/a.xml"_qs);
    EXPECT_EQ(Get(server.Url(u"/moved"_qs)).body, "<a/>");
    pages["/circle"] = RedirectTo(server.Url(u"/circle"_qs));
    const int before = server.Requests();
    const HttpAnswer circle = Get(server.Url(u"/circle"_qs));
    EXPECT_FALSE(circle.ok);
    EXPECT_FALSE(circle.error.isEmpty());
    EXPECT_LE(server.Requests() - before, 50); // some are sent again when the server closes
    pages["/file"] = RedirectTo(u"file:///etc/passwd"_qs);
    const HttpAnswer file = Get(server.Url(u"/file"_qs));
    EXPECT_FALSE(file.ok);
    EXPECT_TRUE(file.body.isEmpty());
}

TEST_F(HttpGet, AnAnswerThatIsCutIsAFailure) {
    const QByteArray whole = Ok("", "<a>0123456789</a>");
    for (const qsizetype length : {qsizetype{0}, qsizetype{9}, whole.indexOf("\r\n\r\n"), whole.size() - 1}) {
        pages["/cut"] = whole.first(length);
        const HttpAnswer answer = Get(server.Url(u"/cut"_qs));
        EXPECT_FALSE(answer.ok) << length;
        EXPECT_FALSE(answer.error.isEmpty()) << length;
    }
    // Without a length the end of the connection is the end of the answer.
    pages["/open"] = "HTTP/1.0 200 OK\r\n\r\n<a/>";
    const HttpAnswer open = Get(server.Url(u"/open"_qs));
    EXPECT_TRUE(open.ok) << open.error.toStdString();
    EXPECT_EQ(open.body, "<a/>");
}

TEST_F(HttpGet, AServerThatNeverAnswersIsLeftWhenTheUserCancels) {
    int steps = 0;
    const HttpAnswer answer =
        http->Get(server.Url(u"/silence"_qs), [&](qint64, qint64) { return ++steps < 3; });
    EXPECT_TRUE(answer.cancelled);
    EXPECT_FALSE(answer.ok);
    EXPECT_FALSE(answer.cannotLocate);
    EXPECT_EQ(steps, 3);
    pages["/a.xml"] = Ok("", "<a/>");
    EXPECT_TRUE(Get(server.Url(u"/a.xml"_qs)).ok); // the next request is as good as ever
}

TEST_F(HttpGet, PackedAnswersAreUnpackedHoweverWellTheyShrank) {
    const QByteArray body = "<a>" + QByteArray(20'000'000, ' ') + "</a>";
    pages["/packed"] = Ok("Content-Encoding: deflate\r\n", qCompress(body, 9).sliced(4));
    const HttpAnswer answer = Get(server.Url(u"/packed"_qs));
    EXPECT_TRUE(answer.ok) << answer.error.toStdString();
    EXPECT_TRUE(answer.body == body);
}

TEST_F(HttpGet, SaysWhenThereIsNoServer) {
    QTcpServer closed;
    ASSERT_TRUE(closed.listen(QHostAddress::LocalHost));
    const QString url = u"http://127.0.0.1:%1/"_qs.arg(closed.serverPort());
    closed.close();
    const HttpAnswer refused = Get(url);
    EXPECT_TRUE(refused.cannotLocate);
    EXPECT_FALSE(refused.ok);
    EXPECT_EQ(refused.status, 0);
    for (const QString& bad : {QString(), u"http://"_qs, u"http://h:99999999/"_qs, u"file:///etc/passwd"_qs,
                               u"x.xml"_qs, u"http://[::1"_qs}) {
        const HttpAnswer answer = Get(bad);
        EXPECT_FALSE(answer.ok) << bad.toStdString();
        EXPECT_FALSE(answer.error.isEmpty()) << bad.toStdString();
    }
}

TEST_F(HttpGet, AnotherHostIsAskedOnlyByRequestsThatMayGoAnywhere) {
    const test::LoopbackServer other([](const QByteArray&) { return Ok("", "<b/>"); });
    pages["/moved"] = RedirectTo(u"/deep/a.xml"_qs);
    pages["/deep/a.xml"] = Ok("", "<a/>");
    pages["/away"] = RedirectTo(other.Url(u"/b.xml"_qs));
    const auto get = [this](const QString& path, services::Redirects redirects) {
        return http->Get(
            server.Url(path), [](qint64, qint64) { return true; }, redirects);
    };
    const HttpAnswer within = get(u"/moved"_qs, services::Redirects::WithinHost);
    EXPECT_EQ(within.body, "<a/>");
    EXPECT_EQ(within.address, server.Url(u"/deep/a.xml"_qs));
    const HttpAnswer away = get(u"/away"_qs, services::Redirects::WithinHost);
    EXPECT_FALSE(away.ok);
    EXPECT_FALSE(away.cancelled);
    EXPECT_EQ(away.movedTo, other.Url(u"/b.xml"_qs));
    EXPECT_EQ(other.Requests(), 0);
    EXPECT_EQ(get(u"/away"_qs, services::Redirects::Anywhere).address, other.Url(u"/b.xml"_qs));
}
