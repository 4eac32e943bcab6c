// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/EditorText.h"
#include <QTextBlock>
#include <QTextDocument>
#include <algorithm>
#include <bitset>

namespace {

constexpr char16_t kSeparator = 0x2029;
constexpr std::array<char16_t, 3> kSpecial{kSeparator, 0xFDD0, 0xFDD1};
// Noncharacters, which no text should hold; where one does all the same, characters of private use stand in.
constexpr std::array<char16_t, 4> kUsualStandIns{0xFDD2, 0xFDD3, 0xFDD4, 0xFDD5};

bool IsReserved(char16_t unit) {
    return unit == kSeparator || static_cast<unsigned>(unit) - 0xFDD0U < 6U;
}

/// Whether a text can go into a document as it is.
bool IsPlain(QStringView text) {
    qsizetype lineStart = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i].unicode();
        if (IsReserved(unit))
            return false;
        if (unit == u'\n') {
            if (i - lineStart > EditorText::kLongestLine)
                return false;
            lineStart = i + 1;
        }
    }
    return text.size() - lineStart <= EditorText::kLongestLine;
}

} // namespace

QString EditorText::Load(const QString& text) {
    marks_.clear();
    cut_ = false;
    standIns_ = kUsualStandIns;
    if (IsPlain(text))
        return text;
    ChooseStandIns(text);
    return CutAndReplace(text);
}

QString EditorText::Insert(const QString& text) {
    if (IsPlain(text))
        return text;
    QString clean = text;
    // A piece may hold the very characters that stand for others here; the document can't take them in any
    // more.
    for (QChar& unit : clean)
        if (std::find(standIns_.begin(), standIns_.end(), unit.unicode()) != standIns_.end())
            unit = QChar::ReplacementCharacter;
    return CutAndReplace(clean);
}

void EditorText::ChooseStandIns(QStringView text) {
    constexpr char16_t kFirst = 0xE000, kEnd = 0xF8FF;
    std::bitset<0x10000> used;
    for (const QChar unit : text)
        used.set(unit.unicode());
    char16_t candidate = kFirst;
    for (char16_t& standIn : standIns_) {
        if (!used.test(standIn))
            continue;
        while (candidate < kEnd && used.test(candidate))
            ++candidate;
        standIn = candidate++;
    }
}

char16_t EditorText::StandIn(char16_t unit) const {
    for (std::size_t i = 0; i < kSpecial.size(); ++i)
        if (unit == kSpecial[i])
            return standIns_[i];
    return unit;
}

char16_t EditorText::Original(char16_t unit) const {
    for (std::size_t i = 0; i < kSpecial.size(); ++i)
        if (unit == standIns_[i])
            return kSpecial[i];
    return unit;
}

QString EditorText::CutAndReplace(QStringView text) {
    QString result;
    result.reserve(text.size() + 2 * (text.size() / kLongestLine) + 2);
    qsizetype inLine = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar unit = text[i];
        if (unit == u'\n' || unit == u'\r') {
            inLine = 0;
        } else if (inLine >= kLongestLine && !unit.isLowSurrogate()) {
            result += QChar(Mark());
            result += QChar(u'\n');
            cut_ = true;
            inLine = 0;
        }
        result += QChar(StandIn(unit.unicode()));
        ++inLine;
    }
    return result;
}

QString EditorText::Read(const QString& raw, QStringView lineEnd) const {
    const auto ends = static_cast<qsizetype>(std::count(raw.begin(), raw.end(), QChar(kSeparator)));
    QString result(raw.size() + ends * (lineEnd.size() - 1), Qt::Uninitialized);
    QChar* out = result.data();
    bool marked = false;
    for (const QChar unit : raw) {
        if (unit == QChar(kSeparator)) {
            if (!marked)
                out = std::copy(lineEnd.begin(), lineEnd.end(), out);
            marked = false;
            continue;
        }
        marked = unit == QChar(Mark());
        if (!marked)
            *out++ = QChar(Original(unit.unicode()));
    }
    result.truncate(out - result.constData());
    return result;
}

void EditorText::Changed(const QTextDocument& document, int position, int removed, int added) {
    if (!cut_)
        return;
    const auto first = std::lower_bound(marks_.begin(), marks_.end(), position);
    const auto behind = std::lower_bound(first, marks_.end(), position + removed);
    for (auto mark = behind; mark != marks_.end(); ++mark)
        *mark += added - removed;
    std::vector<int> fresh;
    const int end = std::min(position + added, document.characterCount() - 1);
    for (QTextBlock block = document.findBlock(position); block.isValid() && block.position() < end;
         block = block.next()) {
        const QString text = block.text();
        for (qsizetype at = text.indexOf(QChar(Mark())); at >= 0; at = text.indexOf(QChar(Mark()), at + 1))
            if (const int place = block.position() + static_cast<int>(at); place >= position && place < end)
                fresh.push_back(place);
    }
    const auto gap = marks_.erase(first, behind);
    marks_.insert(gap, fresh.begin(), fresh.end());
}

// Each separator before a position counts one more in the model, but for one behind a mark: it and its mark
// don't count.
qsizetype EditorText::ToModel(const QTextDocument& document, int position) const {
    qsizetype result = position + document.findBlock(position).blockNumber();
    for (const int mark : marks_) {
        if (mark >= position)
            break;
        result -= 1;
        if (mark + 1 < position && document.characterAt(mark + 1) == QChar(kSeparator))
            result -= 2;
    }
    return result;
}

EditorText::LinePlace EditorText::LineOf(const QTextDocument& document, int position) const {
    QTextBlock block = document.findBlock(position);
    qsizetype line = block.blockNumber();
    for (const int mark : marks_) {
        if (mark >= position)
            break;
        line -= mark + 1 < position && document.characterAt(mark + 1) == QChar(kSeparator) ? 1 : 0;
    }
    const auto goesOn = [this](const QTextBlock& before) {
        const int last = before.position() + before.length() - 2;
        return before.isValid() && before.length() > 1 &&
               std::binary_search(marks_.begin(), marks_.end(), last);
    };
    while (goesOn(block.previous()))
        block = block.previous();
    return {line, ToModel(document, position) - ToModel(document, block.position())};
}

int EditorText::ToDocument(const QTextDocument& document, qsizetype position) const {
    // The last block that starts at or before the position.
    int low = 0, high = document.blockCount() - 1;
    while (low < high) {
        const int middle = low + (high - low + 1) / 2;
        if (ToModel(document, document.findBlockByNumber(middle).position()) <= position)
            low = middle;
        else
            high = middle - 1;
    }
    const QTextBlock block = document.findBlockByNumber(low);
    qsizetype rest = position - ToModel(document, block.position());
    qsizetype place = block.position();
    const qsizetype end = block.position() + block.length() - 1;
    auto mark = std::lower_bound(marks_.begin(), marks_.end(), block.position());
    for (; rest > 0 && place < end; ++place) {
        if (mark != marks_.end() && *mark == place)
            ++mark;
        else
            --rest;
    }
    return static_cast<int>(place);
}
