// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/text/LongText.h"
#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QStringView>
#include <cstdint>
#include <memory>
#include <vector>

// Bytes of a document file to the text of a window and back, so that a file opened and saved unchanged keeps
// its bytes.
namespace text {

enum class LineEnd : std::uint8_t { CrLf, Lf, Cr };

/// How a file writes its line ends. `common` is used for new lines; `each` (one entry a line end, in order)
/// is filled only when the file mixes them, together with the text they belong to.
struct LineEnds {
    LineEnd common = LineEnd::CrLf;
    std::vector<LineEnd> each;
    LongText loadedText;
};

/// What a window remembers of its file.
struct FileForm {
    QString encoding = QStringLiteral("UTF-8"); ///< the code the bytes are in (a name Encode takes)
    QString declared;  ///< the label in the declaration as it was read, empty without one
    bool mark = false; ///< a byte-order mark stands in front
    LineEnds lineEnds;
    /// Set only where writing the text again would not give these bytes: the file as read, and its text.
    std::shared_ptr<const QByteArray> originalBytes;
    LongText originalText;
};

struct Decoded {
    LongText text; ///< with CR LF line ends, without the mark
    FileForm form;
    QString warning; ///< one sentence for the user where the declared code or mark didn't fit; else empty
};

/// Bytes to text: byte-order mark, else UTF-16 recognised by its first bytes, else the declared encoding,
/// else `charset` (what a server says beside the bytes, empty for nothing), else UTF-8, else the locale's
/// 8-bit code, else Latin-1, which takes any byte. Where the mark, the declared code or the charset doesn't
/// fit the bytes the next in this order is used and `warning` says so. Never fails; no byte is lost. A text
/// read by its charset alone is written as UTF-8: a file has no place to say that charset.
Decoded Decode(const QByteArray& bytes, const QString& charset = {});

struct Encoded {
    QByteArray bytes;
    QString encoding;  ///< the code that was used
    bool mark = false; ///< a byte-order mark stands in front
    qsizetype badPosition =
        -1; ///< 0-based place of the first character that the code can't hold; -1 when all fit
};

/// Text (CR LF line ends) to bytes. The code is the one the file was read with as long as the text's
/// declaration is the one it was read with (also: none), else the one the declaration names now (an unknown
/// label: UTF-8); the mark and the line ends are those of the form. UTF-16 is written with a mark always. A
/// lone half of a surrogate pair counts as a character that can't be held.
Encoded Encode(const QString& text, const FileForm& form);

/// The label in the encoding pseudo-attribute of the declaration a text starts with; empty without one.
QString DeclaredEncoding(QStringView text);
QString DeclaredEncoding(const LongText& text);
/// The text with the declaration's encoding changed to `label` (added when the declaration has none; a text
/// without a declaration comes back unchanged, since it means UTF-8 then).
QString WithDeclaredEncoding(const QString& text, const QString& label);
/// Whether a label (any case, all of the vocabulary's fourteen and the usual names) can be read and written.
bool KnowsEncoding(const QString& label);

} // namespace text
