// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/ImportText.h"
#include "core/model/Escaping.h"
#include "exchange/FieldNames.h"
#include "exchange/LineWalk.h"
#include "platform/text/TextTools.h"
#include <algorithm>

namespace exchange {

namespace {

constexpr qsizetype kStepUnits = 1 << 20;

/// The records of a text, blank lines left out.
class Records {
public:
    Records(const text::Decoded& text, const TextOptions& options)
        : lines_(text.text, text.form.lineEnds, options.everyEnd),
          splitter_(options.delimiter, options.quotes) {}

    /// Goes to the next record, at first to the first.
    bool Next() {
        do {
            if (!lines_.Next())
                return false;
        } while (
            std::all_of(lines_.Line().begin(), lines_.Line().end(), [](QChar unit) { return unit == u' '; }));
        line_ = lines_.Number();
        while (!splitter_.Take(lines_.Line())) {
            if (!lines_.Next()) {
                unfinished_ = line_;
                splitter_.Forget();
                break;
            }
        }
        return true;
    }
    const std::vector<QStringView>& Fields() { return splitter_.Fields(); }
    bool TooWide() { return Fields().size() > kMostFields; }
    qsizetype Line() const { return line_; } ///< in which the record begins
    qsizetype Position() const { return lines_.Position(); }
    /// The line in which the record began that the text's end broke off; 0 without one.
    qsizetype UnfinishedQuote() const { return unfinished_; }

private:
    LineWalk lines_;
    FieldSplitter splitter_;
    qsizetype line_ = 0, unfinished_ = 0;
};

QString FirstLine(const text::Decoded& text, const TextOptions& options) {
    LineWalk lines(text.text, text.form.lineEnds, options.everyEnd);
    return lines.Next() ? lines.Line().toString() : QString();
}

/// The names of the columns; `header`: the fields of the first row.
std::vector<QString> GetFieldName(Application& app, const text::Decoded& text, const TextOptions& options,
                                  std::vector<QString> header, std::size_t columns) {
    if (!options.firstHoldsNames)
        return NumberedNames(columns);
    header.resize(columns);
    if (!options.validNames) { // the names are the cells, and these are escaped
        for (QString& name : header)
            name = mXMLEdit::convertStringToXML(name);
    }
    std::vector<QString> names = NamesOfHeader(header, FirstLine(text, options));
    if (options.filling == Filling::Attributes) {
        for (QString& name : names)
            name = text::Trim(name);
    }
    return options.validNames ? ValidNames(app, names) : names;
}

std::vector<QString> Kept(const std::vector<QStringView>& fields) {
    std::vector<QString> kept;
    for (const QStringView field : fields)
        kept.push_back(field.toString());
    return kept;
}

/// What has to be known before the first row can be written.
struct Shape {
    std::size_t columns = 1;
    std::vector<QString> header;
    qsizetype unfinishedQuote = 0, tooWide = 0;
    bool cancelled = false;
};

/// Steps of a walk through the text, not more often than they can be told.
class Steps {
public:
    Steps(const edit::WaitStep& step, qsizetype total) : step_(step), total_(total) {}
    bool GoOn(qsizetype position) {
        if (position < next_)
            return true;
        next_ = position + kStepUnits;
        return !step_ || step_(position, total_);
    }

private:
    const edit::WaitStep& step_;
    qsizetype total_, next_ = 0;
};

Shape ShapeOf(const text::Decoded& text, const TextOptions& options, const edit::WaitStep& step) {
    Shape shape;
    Records records(text, options);
    Steps steps(step, text.text.size() * 2);
    for (bool first = true; records.Next(); first = false) {
        shape.columns = std::max(shape.columns, records.Fields().size());
        if (shape.columns > kMostFields) {
            shape.tooWide = records.Line();
            break;
        }
        if (first)
            shape.header = Kept(records.Fields());
        if (!steps.GoOn(records.Position())) {
            shape.cancelled = true;
            break;
        }
    }
    shape.unfinishedQuote = records.UnfinishedQuote();
    return shape;
}

/// False when the user cancelled.
bool WriteRows(Records& records, std::size_t columns, RowsXml& rows, Steps& steps, qsizetype begin) {
    while (records.Next()) {
        const std::vector<QStringView>& fields = records.Fields();
        rows.BeginRow();
        for (std::size_t i = 0; i < columns; ++i)
            rows.Field(i < fields.size() ? fields[i] : QStringView());
        rows.EndRow();
        if (!steps.GoOn(begin + records.Position()))
            return false;
    }
    return true;
}

} // namespace

TextSample SampleOf(Application& app, const text::Decoded& text, const TextOptions& options,
                    std::size_t most) {
    TextSample sample;
    Records records(text, options);
    std::vector<QString> header;
    while (sample.rows.size() < most && records.Next()) {
        sample.tooWide = records.TooWide();
        if (sample.tooWide)
            break;
        std::vector<QString>& row = sample.rows.emplace_back();
        for (const QStringView field : records.Fields())
            row.push_back(mXMLEdit::convertStringToXML(field.toString()));
        sample.columns = std::max(sample.columns, row.size());
        if (sample.rows.size() == 1)
            header = Kept(records.Fields());
    }
    sample.unfinishedQuote = records.UnfinishedQuote() > 0;
    sample.names = GetFieldName(app, text, options, std::move(header), sample.columns);
    return sample;
}

MadeText GetResXML(Application& app, const text::Decoded& text, const TextOptions& options,
                   const edit::WaitStep& step) {
    MadeText made;
    Shape shape = ShapeOf(text, options, step);
    made.cancelled = shape.cancelled;
    made.unfinishedQuote = shape.unfinishedQuote;
    made.tooWide = shape.tooWide;
    if (made.cancelled || made.unfinishedQuote > 0 || made.tooWide > 0)
        return made;
    RowsXml rows(GetFieldName(app, text, options, std::move(shape.header), shape.columns), options.filling);
    Records records(text, options);
    Steps steps(step, text.text.size() * 2);
    rows.Begin();
    if (options.firstHoldsNames)
        records.Next();
    made.cancelled = !WriteRows(records, shape.columns, rows, steps, text.text.size());
    made.text = rows.Finish();
    made.leftOut = rows.Skipped();
    return made;
}

} // namespace exchange
