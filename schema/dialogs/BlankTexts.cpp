// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/dialogs/BlankTexts.h"
#include <algorithm>

namespace schema {

namespace {

/// Looks at one character after the other: "<a>", blanks, "</". Comments between them don't count.
class Scan {
public:
    /// True once there is one.
    bool Take(char16_t letter) {
        const bool blank = letter == u' ' || letter == u'\t' || letter == u'\r' || letter == u'\n';
        switch (state_) {
        case Text:
            state_ = letter == u'<' ? Opened : Text;
            return false;
        case Opened:
            state_ = letter == u'/' || letter == u'!' || letter == u'?' ? OtherTag : StartTag;
            return false;
        case OtherTag:
            state_ = letter == u'>' ? Text : OtherTag;
            return false;
        case StartTag:
            state_ = letter == u'>' ? (before_ == u'/' ? Text : Empty) : StartTag;
            before_ = letter;
            return false;
        case Empty:
        case Blank:
            state_ = letter == u'<' ? (state_ == Blank ? OpenedBehindBlank : OpenedBehindTag)
                     : blank        ? Blank
                                    : Text;
            return false;
        case OpenedBehindTag:
        case OpenedBehindBlank:
            if (letter == u'/' && state_ == OpenedBehindBlank)
                return true;
            state_ = letter == u'!' || letter == u'?' ? Aside : letter == u'/' ? OtherTag : StartTag;
            return false;
        case Aside:
            state_ = letter == u'>' ? Blank : Aside;
            return false;
        }
        return false;
    }

private:
    enum {
        Text,
        Opened,
        OtherTag,
        StartTag,
        Empty,
        Blank,
        OpenedBehindTag,
        OpenedBehindBlank,
        Aside
    } state_ = Text;
    char16_t before_ = 0;
};

} // namespace

bool HaveBlankTexts(const std::vector<text::LongText>& documents) {
    return std::any_of(documents.begin(), documents.end(), [](const text::LongText& document) {
        Scan scan;
        bool found = false;
        document.visit(0, document.size(), [&](QStringView piece) {
            found =
                std::any_of(piece.begin(), piece.end(), [&](QChar one) { return scan.Take(one.unicode()); });
            return !found;
        });
        return found;
    });
}

} // namespace schema
