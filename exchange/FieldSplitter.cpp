// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/FieldSplitter.h"

namespace exchange {

namespace {
constexpr char16_t kQuote = u'"';
}

bool FieldSplitter::Take(QStringView line) {
    if (!inside_) {
        plain_ = quotes_ == Quotes::None || !line.contains(kQuote);
        scratch_.resize(0);
        ends_.clear();
    } else {
        scratch_ += u'\n'; // the record goes on behind the line's end
    }
    if (plain_)
        SplitPlain(line);
    else if (quotes_ == Quotes::OfLine)
        WalkLine(line);
    else
        WalkFields(line);
    return !inside_;
}

void FieldSplitter::SplitPlain(QStringView line) {
    fields_.clear();
    if (delimiter_.size() != 1) {
        qsizetype at = delimiter_.isEmpty() ? -1 : line.indexOf(delimiter_);
        for (; at >= 0 && fields_.size() < kMostFields; at = line.indexOf(delimiter_)) {
            fields_.push_back(line.first(at));
            line = line.sliced(at + delimiter_.size());
        }
        fields_.push_back(line);
        return;
    }
    const QChar* begin = line.begin();
    for (const QChar* at = begin; at != line.end() && fields_.size() < kMostFields; ++at) {
        if (*at == delimiter_[0]) {
            fields_.emplace_back(begin, at);
            begin = at + 1;
        }
    }
    fields_.emplace_back(begin, line.end());
}

bool FieldSplitter::IsDelimiter(QStringView line, qsizetype at) const {
    return !delimiter_.isEmpty() && line.sliced(at).startsWith(delimiter_);
}

// Where the characters end that stand for themselves whatever the state is.
qsizetype FieldSplitter::EndOfPlain(QStringView line, qsizetype from) const {
    const QChar first = delimiter_.isEmpty() ? QChar(kQuote) : delimiter_[0];
    while (from < line.size() && line[from] != kQuote && line[from] != first)
        ++from;
    return from;
}

// Pairs are looked for from the left and count as one character wherever they stand (quirk 97).
void FieldSplitter::WalkLine(QStringView line) {
    for (qsizetype at = 0; at < line.size();) {
        const qsizetype end = EndOfPlain(line, at);
        scratch_ += line.sliced(at, end - at);
        at = end;
        if (at == line.size())
            break;
        if (line[at] == kQuote && at + 1 < line.size() && line[at + 1] == kQuote) {
            scratch_ += kQuote;
            at += 2;
        } else if (line[at] == kQuote) {
            inside_ = !inside_;
            ++at;
        } else if (!inside_ && IsDelimiter(line, at)) {
            EndField();
            at += delimiter_.size();
        } else {
            scratch_ += line[at++];
        }
    }
    inside_ = false; // a quote that doesn't end goes to the end of its line
    EndField();
}

void FieldSplitter::WalkFields(QStringView line) {
    bool begins = !inside_;
    for (qsizetype at = 0; at < line.size();) {
        const qsizetype end = EndOfPlain(line, at);
        scratch_ += line.sliced(at, end - at);
        begins = begins && end == at;
        at = end;
        if (at == line.size())
            break;
        if (!inside_ && IsDelimiter(line, at)) {
            EndField();
            at += delimiter_.size();
            begins = true;
            continue;
        }
        const bool doubled = at + 1 < line.size() && line[at + 1] == kQuote;
        if (line[at] == kQuote && inside_ && doubled)
            ++at; // and is taken below
        else if (line[at] == kQuote && (inside_ || begins)) {
            inside_ = !inside_;
            begins = false;
            ++at;
            continue;
        }
        scratch_ += line[at++];
        begins = false;
    }
    if (!inside_)
        EndField();
}

const std::vector<QStringView>& FieldSplitter::Fields() {
    if (plain_)
        return fields_;
    fields_.clear();
    qsizetype begin = 0;
    for (const qsizetype end : ends_) {
        fields_.push_back(QStringView(scratch_).sliced(begin, end - begin));
        begin = end;
    }
    return fields_;
}

void FieldSplitter::Forget() {
    inside_ = false;
    if (!plain_)
        EndField();
}

} // namespace exchange
