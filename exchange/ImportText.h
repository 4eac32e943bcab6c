// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/edit/Waiting.h"
#include "exchange/FieldSplitter.h"
#include "exchange/RowsXml.h"
#include "platform/text/TextFile.h"
#include <QString>
#include <vector>

struct Application;

// Delimited text to a document.
namespace exchange {

/// How a text is read, and what is made of it.
struct TextOptions {
    QString delimiter;
    Quotes quotes = Quotes::OfLine;
    bool firstHoldsNames = false;
    Filling filling = Filling::Elements;
    bool validNames = false;
    bool everyEnd = false; ///< every line end outside quotes ends a record, whatever its kind
};

/// The beginning of a text as rows of cells, in the escaped form in which they are written.
struct TextSample {
    std::vector<std::vector<QString>> rows; ///< as wide as each of them is
    std::size_t columns = 1;                ///< of the widest
    std::vector<QString> names;             ///< of the columns
    bool unfinishedQuote = false;           ///< in the last row
    bool tooWide = false;                   ///< the last row has more fields than a row can have
};

/// At most `most` rows; blank lines make none.
TextSample SampleOf(Application& app, const text::Decoded& text, const TextOptions& options,
                    std::size_t most);

/// What became of a whole text.
struct MadeText {
    text::LongText text;
    LeftOut leftOut;
    qsizetype unfinishedQuote = 0; ///< the line in which a quote begins that never ends; 0: none
    qsizetype tooWide = 0;         ///< the line with more fields than a row can have; 0: none
    bool cancelled = false;
};

/// The document of a whole text; `step` is told the units of the text that have been read.
MadeText GetResXML(Application& app, const text::Decoded& text, const TextOptions& options,
                   const edit::WaitStep& step);

} // namespace exchange
