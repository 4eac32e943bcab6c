// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/NodePlaces.h"

namespace m_tvXML {

namespace {

/// Reads a text's markup piece by piece and tells where numbered nodes begin. Of tags only the beginning is
/// looked at: no "<" stands in the rest of one.
class MarkupReader {
public:
    /// Calls `visit` with the 0-based place of each node's "<", until it returns false. False then.
    template <typename Visit> bool read(QStringView piece, Visit visit) {
        bool more = true;
        qsizetype at = 0;
        while (more && at < piece.size()) {
            if (state_ == State::Text) {
                at = piece.indexOf(u'<', at);
                if (at < 0)
                    break;
                place_ = start_ + at++;
                state_ = State::Opened;
            } else if (step(piece[at], at)) {
                more = visit(place_);
            }
        }
        start_ += piece.size();
        return more;
    }
    /// The same, but only counts: where nothing is a comment, a section or an instruction, many at once.
    long count(QStringView piece) {
        if (state_ != State::Text || piece.contains(u'?') || piece.contains(u'!') || piece.back() == u'<') {
            long number = 0;
            read(piece, [&number](qsizetype) {
                ++number;
                return true;
            });
            return number;
        }
        long number = 0;
        const char16_t* const units = piece.utf16();
        for (qsizetype i = 0; i + 1 < piece.size(); ++i) // without branches
            number += static_cast<long>(units[i] == u'<') & static_cast<long>(units[i + 1] != u'/');
        start_ += piece.size();
        return number;
    }
    bool endsInOpener() const { return state_ == State::Opened; }

private:
    enum class State {
        Text,
        Opened,
        Declared,
        Dashed,
        Comment,
        SectionHead,
        Section,
        Instruction,
        DocumentType
    };

    // One character that isn't text. True where it shows that a node began at place_. `at` goes on unless the
    // character is to be looked at again.
    bool step(QChar c, qsizetype& at) {
        ++at;
        switch (state_) {
        case State::Opened:
            return open(c, at);
        case State::Declared:
            declare(c);
            return false;
        case State::Dashed:
            enter(c == u'-' ? State::Comment : State::DocumentType);
            return c == u'-' && !inDocumentType_;
        case State::SectionHead:
            if (c != QStringView(u"CDATA[")[run_])
                enter(State::DocumentType);
            else if (++run_ == 6)
                enter(State::Section);
            return false;
        case State::Comment:
            end(c, u'-', 2);
            return false;
        case State::Section:
            end(c, u']', 2);
            return false;
        case State::Instruction:
            end(c, u'?', 1);
            return false;
        case State::DocumentType:
            inDocumentType(c);
            return false;
        case State::Text:
            break;
        }
        return false;
    }
    // Behind a "<".
    bool open(QChar c, qsizetype& at) {
        if (c == u'!') {
            enter(State::Declared);
            return false;
        }
        const bool node = c != u'/' && !inDocumentType_;
        if (c == u'?')
            enter(State::Instruction);
        else if (leave(); c == u'<')
            --at;
        return node;
    }
    // Behind a "<!".
    void declare(QChar c) {
        if (c == u'-')
            enter(State::Dashed);
        else if (c == u'[' && !inDocumentType_)
            enter(State::SectionHead);
        else
            beginDeclaration(c);
    }
    // A document type, or a declaration in one.
    void beginDeclaration(QChar c) {
        if (!inDocumentType_)
            depth_ = 0;
        inDocumentType_ = true;
        quote_ = QChar();
        enter(State::DocumentType);
        inDocumentType(c);
    }
    void inDocumentType(QChar c) {
        inDocumentType_ = true;
        if (!quote_.isNull())
            quote_ = c == quote_ ? QChar() : quote_;
        else if (c == u'"' || c == u'\'')
            quote_ = c;
        else if (c == u'[')
            ++depth_;
        else if (c == u']')
            --depth_;
        else if (c == u'<')
            enter(State::Opened);
        else if (c == u'>' && depth_ <= 0) {
            inDocumentType_ = false;
            enter(State::Text);
        }
    }
    // What ends in `count` times a mark and a ">".
    void end(QChar c, QChar mark, int count) {
        if (c == u'>' && run_ >= count)
            leave();
        else
            run_ = c == mark ? run_ + 1 : 0;
    }
    void enter(State state) {
        state_ = state;
        run_ = 0;
    }
    void leave() { enter(inDocumentType_ ? State::DocumentType : State::Text); }

    State state_ = State::Text;
    qsizetype start_ = 0; // of the piece
    qsizetype place_ = 0; // of the last "<"
    int run_ = 0;         // marks in a row, or letters of a section's head
    int depth_ = 0;       // of brackets in a document type
    bool inDocumentType_ = false;
    QChar quote_;
};

} // namespace

qsizetype GetTextPositionByNodeNum(const text::LongText& text, long number) {
    if (number <= 0)
        return 0;
    MarkupReader reader;
    long count = 0;
    qsizetype found = 0;
    text.visit(0, text.size(), [&](QStringView piece) {
        return reader.read(piece, [&](qsizetype place) {
            if (++count == number)
                found = place + 1;
            return found == 0;
        });
    });
    return found;
}

NodeStretch GetNodeStretch(const text::LongText& text, long number) {
    NodeStretch stretch{number > 0 ? text.size() : 0, text.size()};
    MarkupReader reader;
    long count = 0;
    text.visit(0, text.size(), [&](QStringView piece) {
        return reader.read(piece, [&](qsizetype place) {
            if (++count == number)
                stretch.start = place;
            else if (count > number)
                stretch.end = place;
            return count <= number;
        });
    });
    return stretch;
}

long GetNodeNumByTextPosition(const text::LongText& text, qsizetype position) {
    MarkupReader reader;
    long number = 0;
    text.visit(0, position, [&](QStringView piece) {
        number += reader.count(piece);
        return true;
    });
    // A node whose first character alone stands before the position has begun.
    return number + (reader.endsInOpener() ? 1 : 0);
}

} // namespace m_tvXML
