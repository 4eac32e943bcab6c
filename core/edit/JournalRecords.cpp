// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/edit/JournalRecords.h"
#include <QDataStream>
#include <QIODevice>
#include <algorithm>

namespace edit {

namespace {

using text::LineEnd;

constexpr quint8 kFormat = 2;                   // the first one knew of no bad bytes
constexpr qsizetype kLineEndPart = 1024 * 1024; // line ends in one record

enum class Record : quint8 { Head = 1, LineEnds, Name, Change };

template <typename... Values> QByteArray Make(Record kind, const Values&... values) {
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_6_0);
    stream << static_cast<quint8>(kind);
    (stream << ... << values);
    return bytes;
}

bool IsWhole(const QDataStream& stream) {
    return stream.status() == QDataStream::Ok && stream.atEnd();
}

} // namespace

// --- writing -----------------------------------------------------------------------------------------------

std::vector<QByteArray> HeadRecords(const JournalHead& head) {
    const text::FileForm& form = head.form;
    std::vector<QByteArray> records{Make(Record::Head, kFormat, head.name, head.kind, form.encoding,
                                         form.declared, form.mark, static_cast<quint8>(form.lineEnds.common),
                                         static_cast<quint32>(form.badBytes))};
    const std::vector<LineEnd>& each = form.lineEnds.each;
    const auto count = static_cast<qsizetype>(each.size());
    for (qsizetype from = 0; from < count; from += kLineEndPart) {
        QByteArray part(std::min(kLineEndPart, count - from), Qt::Uninitialized);
        std::transform(each.begin() + from, each.begin() + from + part.size(), part.begin(),
                       [](LineEnd end) { return static_cast<char>(end); });
        records.push_back(Make(Record::LineEnds, part));
    }
    return records;
}

QByteArray NameRecord(const QString& name) {
    return Make(Record::Name, name);
}

// Neither form knows of surrogates, so a half of a pair comes back as it was.
QByteArray ChangeRecord(const text::LongText& after, const text::TextChange& change, qsizetype done) {
    const QString part = after.mid(change.start + done, std::min(kChangePart, change.added - done));
    const bool wide = std::any_of(part.begin(), part.end(), [](QChar unit) { return unit.unicode() > 255; });
    const qint64 start = change.start, removed = change.removed, added = change.added, from = done;
    return wide ? Make(Record::Change, start, removed, added, from, true, part)
                : Make(Record::Change, start, removed, added, from, false, part.toLatin1());
}

text::LineEnds LineEndsFor(const text::LongText& now, const text::LineEnds& ends) {
    if (ends.each.empty())
        return ends;
    const text::TextChange change = text::Difference(ends.loadedText, now);
    const qsizetype behind = change.start + change.added;
    const bool torn = behind > 0 && now.at(behind - 1) == u'\r' && now.at(behind) == u'\n';
    const auto old = static_cast<qsizetype>(ends.each.size());
    const qsizetype count = now.lineCount() - 1;
    const qsizetype front = std::min(old, now.lineOf(change.start));
    const qsizetype back = std::min(old, count - now.lineOf(behind) - (torn ? 1 : 0));
    text::LineEnds result{.common = ends.common, .each = {}, .loadedText = now};
    result.each.assign(ends.each.begin(), ends.each.begin() + front);
    result.each.resize(static_cast<std::size_t>(count - back), ends.common);
    result.each.insert(result.each.end(), ends.each.end() - back, ends.each.end());
    return result;
}

// --- reading -----------------------------------------------------------------------------------------------

bool JournalReader::take(const QByteArray& record) {
    QDataStream stream(record);
    stream.setVersion(QDataStream::Qt_6_0);
    quint8 kind = 0;
    stream >> kind;
    if (hasHead_ == (kind == static_cast<quint8>(Record::Head)))
        return false;
    switch (static_cast<Record>(kind)) {
    case Record::Head:
        return hasHead_ = takeHead(stream);
    case Record::LineEnds:
        return takeLineEnds(stream);
    case Record::Name:
        stream >> head.name;
        return IsWhole(stream);
    case Record::Change:
        return takeChange(stream);
    }
    return false;
}

bool JournalReader::takeHead(QDataStream& stream) {
    quint8 format = 0, lineEnd = 0;
    stream >> format;
    foreign_ = format < 1 || format > kFormat;
    if (foreign_)
        return false;
    stream >> head.name >> head.kind >> head.form.encoding >> head.form.declared >> head.form.mark >> lineEnd;
    quint32 badBytes = 0;
    if (format > 1)
        stream >> badBytes;
    head.form.badBytes = badBytes;
    head.form.lineEnds.common = static_cast<LineEnd>(lineEnd);
    return IsWhole(stream) && lineEnd <= static_cast<quint8>(LineEnd::Cr);
}

bool JournalReader::takeLineEnds(QDataStream& stream) {
    QByteArray part;
    stream >> part;
    std::transform(part.begin(), part.end(), std::back_inserter(head.form.lineEnds.each),
                   [](char end) { return static_cast<LineEnd>(end); });
    return IsWhole(stream) && !hasText_;
}

bool JournalReader::takeChange(QDataStream& stream) {
    qint64 start = 0, removed = 0, added = 0, from = 0;
    bool wide = false;
    QString part;
    stream >> start >> removed >> added >> from >> wide;
    if (wide) {
        stream >> part;
    } else {
        QByteArray latin;
        stream >> latin;
        part = QString::fromLatin1(latin);
    }
    if (from == 0) { // one before it that isn't whole was given up
        coming_ = text;
        change_ = {start, removed, added};
        done_ = 0;
    }
    if (!IsWhole(stream) || from != done_ || part.size() > added - done_ || start < 0 || removed < 0 ||
        start > text.size() || removed > text.size() - start ||
        !(change_ == text::TextChange{start, removed, added}))
        return false;
    coming_.replace(start + from, from == 0 ? removed : 0, part);
    done_ += part.size();
    if (done_ < added)
        return true;
    text = coming_;
    if (!hasText_ && !head.form.lineEnds.each.empty())
        head.form.lineEnds.loadedText = text;
    hasText_ = true;
    return true;
}

} // namespace edit
