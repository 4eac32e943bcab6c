// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/xml/XmlDeclaration.h"
#include <libxml/xmlerror.h>

namespace xml {

namespace {

bool IsBlank(QChar c) {
    return c == u' ' || c == u'\t' || c == u'\r' || c == u'\n';
}

bool IsLabelCharacter(QChar c) {
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9') ||
           QStringView(u"._-:()+").contains(c);
}

bool IsVersion(QStringView value) {
    if (!value.startsWith(u"1.") || value.size() < 3)
        return false;
    return std::all_of(value.begin() + 2, value.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

bool IsLabel(QStringView value) {
    return !value.isEmpty() && std::all_of(value.begin(), value.end(), IsLabelCharacter);
}

/// Walks through the declaration; stops at the first thing that is wrong.
class Reader {
public:
    Reader(QStringView text, qsizetype at) : text_(text), at_(at) {}

    bool read();
    qsizetype at() const { return at_; }
    const std::optional<Complaint>& complaint() const { return complaint_; }

private:
    bool fail(int code, qsizetype place, const char* what);
    bool skipBlanks();
    bool readAssignment(QStringView& value);
    bool readSetting(QStringView name, bool wanted, bool (*good)(QStringView), int code, const char* what);

    QStringView text_;
    qsizetype at_;
    std::optional<Complaint> complaint_;
};

bool Reader::fail(int code, qsizetype place, const char* what) {
    complaint_ = Complaint{code, place, QString(), QString::fromLatin1(what), false};
    return false;
}

bool Reader::skipBlanks() {
    const qsizetype from = at_;
    while (at_ < text_.size() && IsBlank(text_[at_]))
        ++at_;
    return at_ > from;
}

bool Reader::readAssignment(QStringView& value) {
    skipBlanks();
    if (at_ >= text_.size() || text_[at_] != u'=')
        return fail(XML_ERR_EQUAL_REQUIRED, at_, "In the XML declaration a '=' is missing.");
    ++at_;
    skipBlanks();
    if (at_ >= text_.size() || (text_[at_] != u'"' && text_[at_] != u'\''))
        return fail(XML_ERR_STRING_NOT_STARTED, at_,
                    "In the XML declaration a value does not start with a quotation mark.");
    const QChar quote = text_[at_++];
    const qsizetype from = at_;
    while (at_ < text_.size() && text_[at_] != quote && text_[at_] != u'<' && text_[at_] != u'>')
        ++at_;
    if (at_ >= text_.size() || text_[at_] != quote)
        return fail(XML_ERR_STRING_NOT_CLOSED, at_,
                    "In the XML declaration a value lacks its closing quotation mark.");
    value = text_.mid(from, at_ - from);
    ++at_;
    return true;
}

/// One of `version`, `encoding`, `standalone`; true also when it is not there and not wanted.
bool Reader::readSetting(QStringView name, bool wanted, bool (*good)(QStringView), int code,
                         const char* what) {
    const qsizetype before = at_;
    const bool blanks = skipBlanks();
    if (!text_.mid(at_).startsWith(name)) {
        if (wanted)
            return fail(code, at_, what);
        at_ = before;
        return true;
    }
    if (!blanks)
        return fail(XML_ERR_SPACE_REQUIRED, at_,
                    "In the XML declaration a blank is missing between two values.");
    at_ += name.size();
    QStringView value;
    if (!readAssignment(value))
        return false;
    return good(value) || fail(code, at_ - 1 - value.size(), what);
}

bool Reader::read() {
    const auto isYesOrNo = [](QStringView value) { return value == u"yes" || value == u"no"; };
    if (!readSetting(u"version", true, IsVersion, XML_ERR_VERSION_MISSING,
                     "The XML declaration must start with a version such as version=\"1.0\"."))
        return false;
    if (!readSetting(u"encoding", false, IsLabel, XML_ERR_ENCODING_NAME,
                     "The encoding in the XML declaration is not a name of an encoding."))
        return false;
    if (!readSetting(u"standalone", false, isYesOrNo, XML_ERR_STANDALONE_VALUE,
                     "The value of 'standalone' in the XML declaration must be \"yes\" or \"no\"."))
        return false;
    skipBlanks();
    if (!text_.mid(at_).startsWith(u"?>"))
        return fail(
            XML_ERR_XMLDECL_NOT_FINISHED, at_,
            "The XML declaration holds something other than version, encoding and standalone, in this order, "
            "or lacks its '?>'.");
    at_ += 2;
    return true;
}

} // namespace

XmlDeclaration ReadXmlDeclaration(QStringView text) {
    constexpr QStringView kStart = u"<?xml";
    XmlDeclaration result;
    if (!text.startsWith(kStart))
        return result;
    if (text.size() > kStart.size() && !IsBlank(text[kStart.size()]) && text[kStart.size()] != u'?')
        return result; // an instruction such as xml-stylesheet
    Reader reader(text, kStart.size());
    if (!reader.read()) {
        result.complaint = reader.complaint();
        return result;
    }
    qsizetype from = kStart.size();
    while (IsBlank(text[from]))
        ++from;
    result.present = true;
    result.end = reader.at();
    result.data = text.mid(from, result.end - 2 - from).toString();
    result.data.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
    return result;
}

} // namespace xml
