// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/RowsXml.h"
#include "core/model/Escaping.h"

namespace exchange {

namespace {

constexpr qsizetype kBuffer = 1 << 15; // units

bool IsLegal(char16_t unit) {
    return unit >= 0x20 || unit == u'\t' || unit == u'\n' || unit == u'\r';
}

} // namespace

RowsXml::RowsXml(const std::vector<QString>& names, Filling filling) : filling_(filling) {
    const bool attributes = filling == Filling::Attributes;
    for (const QString& name : names) {
        before_.push_back(attributes ? name + QStringLiteral("=\"") : QStringLiteral("\t\t<") + name + u'>');
        behind_.push_back(attributes ? QStringLiteral("\" ")
                                     : QStringLiteral("</") + name + QStringLiteral(">\r\n"));
    }
    for (char16_t unit = 0; unit < kAscii; ++unit) { // quirk 100
        const QString one = mXMLEdit::convertStringToXML(QString(QChar(unit)));
        QString& form = written_[unit];
        if (attributes)
            form = mXMLEdit::WithLineEndReferences(one);
        else
            form = unit == u'\r' ? QStringLiteral("&#13;") : unit == u'\n' ? QStringLiteral("\r\n") : one;
        plain_[unit] = IsLegal(unit) && form.size() == 1;
    }
    buffer_.reserve(kBuffer * 2);
}

void RowsXml::Begin(const QString& declaration) {
    Put(declaration);
    Put(u"<data>\r\n");
}

void RowsXml::BeginRow() {
    ++row_;
    next_ = 0;
    Put(filling_ == Filling::Attributes ? QStringView(u"\t<row ") : QStringView(u"\t<row>\r\n"));
}

void RowsXml::Field(QStringView value) {
    Put(before_[next_]);
    PutValue(value);
    Put(behind_[next_++]);
}

void RowsXml::EndRow() {
    Put(filling_ == Filling::Attributes ? QStringView(u"/>\r\n") : QStringView(u"\t</row>\r\n"));
    if (buffer_.size() > kBuffer)
        Flush();
}

text::LongText RowsXml::Finish() {
    Put(u"</data>");
    Flush();
    return text_.finish();
}

void RowsXml::Put(QStringView text) {
    buffer_ += text;
}

// A value of megabytes goes on in pieces.
void RowsXml::PutValue(QStringView value) {
    const QChar* const end = value.end();
    for (const QChar* at = PutRun(value.begin(), end); at != end; at = PutRun(at, end)) {
        const char16_t unit = at->unicode();
        if (unit < kAscii) {
            if (!IsLegal(unit))
                Skip(unit);
            // A CR LF is one line end of a text; in an attribute nothing makes two units of one again.
            else if (unit != u'\r' || filling_ == Filling::Attributes || at + 1 == end || at[1] != u'\n')
                buffer_ += written_[unit];
            ++at;
        } else if (at->isHighSurrogate() && at + 1 != end && at[1].isLowSurrogate()) {
            buffer_ += QStringView(at, 2);
            at += 2;
        } else {
            Skip(unit);
            ++at;
        }
        if (buffer_.size() > kBuffer)
            Flush();
    }
}

// Writes characters that stand for themselves; the place of the first that doesn't.
const QChar* RowsXml::PutRun(const QChar* from, const QChar* end) {
    const QChar* at = from;
    while (at != end &&
           (at->unicode() < kAscii ? plain_[at->unicode()] : !at->isSurrogate() && at->unicode() < 0xFFFE))
        ++at;
    Put(QStringView(from, at));
    return at;
}

void RowsXml::Skip(char32_t character) {
    if (skipped_.count++ == 0) {
        skipped_.first = character;
        skipped_.row = row_;
    }
}

// The buffer must not end between the halves of a line end or a pair: whole runs go in.
void RowsXml::Flush() {
    text_.append(buffer_);
    buffer_.resize(0);
}

} // namespace exchange
