// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/dialogs/frmImportTxt.h"
#include "core/edit/Fetch.h"
#include "core/edit/Guard.h"
#include "core/model/Encodings.h"
#include "core/model/Frame.h"
#include "exchange/FieldNames.h"
#include "exchange/FileFront.h"
#include "exchange/LineWalk.h"
#include "exchange/OpenMade.h"
#include "platform/text/Encodings.h"
#include "platform/text/TextTools.h"
#include <algorithm>

namespace exchange {

namespace {

constexpr std::size_t kSampleRows = 200;
constexpr qint64 kFrontBytes = 4 << 20;

// Parts of the work, in thousandths.
constexpr int kRead = 100;
constexpr int kMade = 400;

QString QuoteNote(qsizetype line) {
    const QString where =
        line > 0 ? QStringLiteral("in line %1").arg(line) : QStringLiteral("in the last row shown");
    return QStringLiteral("The quote that begins %1 does not end.").arg(where);
}

QString MixedNote() {
    return QStringLiteral("The file mixes its line ends: only one kind of them ends a line.");
}

QString WideNote(qsizetype line) {
    return QStringLiteral(
               "%1 has more than %2 fields: it is no row of a table, or the delimiter is another one.")
        .arg(line > 0 ? QStringLiteral("Line %1").arg(line) : QStringLiteral("A line"))
        .arg(kMostFields);
}

QString NotInEncoding(const QString& label) {
    return (text::KnowsEncoding(label)
                ? QStringLiteral("The bytes of the file aren't in the encoding \"%1\".")
                : QStringLiteral("No encoding is called \"%1\"."))
        .arg(label);
}

bool AreOneEncoding(const QString& one, const QString& other) {
    const std::optional<text::Encoding> a = text::FindEncoding(one), b = text::FindEncoding(other);
    return one == other || (a && b && a->name == b->name);
}

// The beginning of a file in the encoding of a label, empty for the one that is found, which always fits.
std::optional<text::Decoded> ReadFront(const QByteArray& front, bool complete, const QString& label) {
    if (label.isEmpty())
        return complete ? text::Decode(front) : DecodeFront(front);
    return complete ? text::DecodeAs(front, label) : DecodeFrontAs(front, label);
}

} // namespace

frmImportTxt::frmImportTxt(Application& app) : app_(app) {
    cmdOpenFile.Click.connect([this] { cmdOpenFile_Click(); });
    for (controls::CheckBox* box : {&chkFirst, &chkUseAttr, &chkRepair, &chkQuotes})
        box->Click.connect([this] { LoadTextToThisForm(); });
    delimiter.changed.connect([this] { LoadTextToThisForm(); });
    cmbQualifier.Click.connect([this] { LoadTextToThisForm(); });
    cmbEnc.Click.connect([this] { cmbEnc_Click(); });
    cmbEnc.Change.connect([this] { cmbEnc_Change(); });
    OKButton.Click.connect([this] { OKButton_Click(); });
    CancelButton.Click.connect([this] { CancelButton_Click(); });
}

void frmImportTxt::Form_Load() {
    for (const char* qualifier : {"\"", "'", " "})
        cmbQualifier.AddItem(QLatin1String(qualifier));
    cmbQualifier.SetListIndex(0);
    mXMLEdit::LoadEncoding(cmbEnc);
    for (const char* label : {"GB18030", "ISO-8859-15", "1251", "KOI8-R", "EUC-JP", "EUC-KR"})
        cmbEnc.AddItem(QLatin1String(label)); // texts have more of them than documents
    OKButton.SetEnabled(false);               // there is no file
}

bool frmImportTxt::Tell(const QString& text) {
    app_.services.prompts.MsgBox(text, services::Buttons::Ok, services::Icon::Exclamation);
    return false;
}

// --- the file ----------------------------------------------------------------------------------------------

void frmImportTxt::cmdOpenFile_Click() {
    edit::Guarded(app_, QStringLiteral("frmImportTxt@cmdOpenFile_Click"), [&] {
        const QString name = app_.services.prompts.OpenFileName(
            QStringLiteral("Open file"),
            QStringLiteral(
                "Text Files (*.txt;*.csv;*.tab;*.asc)|*.txt;*.csv;*.tab;*.asc|All Files (*.*)|*.*"));
        if (!name.isEmpty())
            ReadBeginning(name);
    });
}

// What isn't a text becomes a document of odd characters, if any.
bool frmImportTxt::MayOpenBinary(const QString& name) {
    return app_.services.prompts.MsgBox(
               QStringLiteral("This file does not look like a text: OK opens it all the same."),
               services::Buttons::OkCancel, services::Icon::Exclamation, QStringLiteral("Vantrel"),
               name) == services::Answer::Ok;
}

void frmImportTxt::ReadBeginning(const QString& name) {
    QByteArray front;
    qint64 size = 0;
    const services::FileResult result = app_.services.files.ReadFront(name, kFrontBytes, front, size);
    if (!result) {
        Tell(edit::ReadFailureText(name, result));
        return;
    }
    const bool complete = front.size() >= size;
    // An encoding that was chosen before there was a file is meant for it.
    const QString wanted = file_.isEmpty() ? encoding_ : QString();
    std::optional<text::Decoded> read = ReadFront(front, complete, wanted);
    const bool fits = read.has_value();
    if (!fits)
        read = ReadFront(front, complete, {});
    if (LooksBinary(read->text) && !MayOpenBinary(name))
        return;
    file_ = name;
    complete_ = complete;
    front_ = front;
    encoding_ = fits ? wanted : QString();
    refusal_.clear();
    sample_ = *std::move(read);
    lblFile.SetCaption(name);
    OKButton.SetEnabled(true);
    ShowEncoding();
    LoadTextToThisForm();
    if (!fits)
        Tell(NotInEncoding(wanted));
}

// The one that the file is read in. One that isn't among the usual ones stands in front of them.
void frmImportTxt::ShowEncoding() {
    const QString label = encoding_.isEmpty() ? sample_.form.encoding : encoding_;
    const QStringList items = cmbEnc.Items();
    const auto same = [&](const QString& item) { return AreOneEncoding(item, label); };
    const auto item = std::find_if(items.begin(), items.end(), same);
    if (item == items.end())
        cmbEnc.AddItem(label, 0);
    mXMLEdit::FindEncoding(item == items.end() ? label : *item, cmbEnc);
}

// False where the file isn't in it. An empty label stands for what is found in the file.
bool frmImportTxt::TakeEncoding(const QString& label) {
    if (file_.isEmpty()) {
        encoding_ = label; // until there is a file to read
        return true;
    }
    std::optional<text::Decoded> read = ReadFront(front_, complete_, label);
    refusal_.clear();
    if (read) {
        encoding_ = label;
        sample_ = *std::move(read);
    }
    return read.has_value();
}

void frmImportTxt::cmbEnc_Click() {
    const QString label = cmbEnc.Text();
    const bool taken = TakeEncoding(label);
    if (!taken)
        ShowEncoding(); // the one before stays
    LoadTextToThisForm();
    if (!taken)
        Tell(NotInEncoding(label));
}

// While a name is being typed no box comes: the note tells whether it is one.
void frmImportTxt::cmbEnc_Change() {
    const QString label = text::Trim(cmbEnc.Text());
    if (!TakeEncoding(label))
        refusal_ = NotInEncoding(label);
    LoadTextToThisForm();
}

// --- the sample --------------------------------------------------------------------------------------------

TextOptions frmImportTxt::Options() const {
    TextOptions options;
    options.delimiter = delimiter.GetDelimiter();
    options.validNames = chkRepair.Value() == 1;
    options.everyEnd = chkQuotes.Value() == 1;
    if (text::Trim(cmbQualifier.Text()).isEmpty()) // quirk 98
        options.quotes = Quotes::None;
    else
        options.quotes = options.everyEnd ? Quotes::OfField : Quotes::OfLine;
    options.firstHoldsNames = chkFirst.Value() == 1;
    options.filling = chkUseAttr.Value() == 1 ? Filling::Attributes : Filling::Elements;
    return options;
}

void frmImportTxt::LoadTextToThisForm() {
    edit::Guarded(app_, QStringLiteral("frmImportTxt@LoadTextToThisForm"), [&] {
        if (file_.isEmpty())
            return;
        TextSample sample = GetRowsColsAndRowdata();
        lblNote.SetCaption(Notes(sample).join(u'\n'));
        FillData(std::move(sample));
    });
}

TextSample frmImportTxt::GetRowsColsAndRowdata() const {
    return SampleOf(app_, sample_, Options(), kSampleRows);
}

void frmImportTxt::FillData(TextSample sample) {
    const int columns = static_cast<int>(sample.columns);
    const int fixed = chkFirst.Value() == 1 && !sample.rows.empty() ? 1 : 0;
    if (fixed == 1 && chkRepair.Value() == 1)
        sample.rows.front() = sample.names;
    grdSample.Show(std::move(sample.rows), columns, fixed);
}

QStringList frmImportTxt::Notes(const TextSample& sample) const {
    QStringList notes;
    const TextOptions options = Options();
    if (!refusal_.isEmpty())
        notes << refusal_;
    if (sample.tooWide)
        notes << WideNote(0);
    else if (sample.rows.empty())
        notes << QStringLiteral("The file holds no rows.");
    else if (const QString complaint = NameComplaint(app_, sample.names, options.filling);
             !complaint.isEmpty())
        notes << complaint;
    if (encoding_.isEmpty() && !sample_.warning.isEmpty())
        notes << sample_.warning;
    if (MixesLineEnds(sample_.form.lineEnds) && !options.everyEnd)
        notes << MixedNote();
    if (MisreadsQuotes(sample))
        notes << QStringLiteral(
            "The quotes in this file make other fields than they would in a CSV file: line "
            "breaks or empty fields inside quotes perhaps. The box \"Quotes as in CSV "
            "files\" reads them so.");
    if (delimiter.optChoose[DelimiterChoice::kOther].Value() && options.delimiter.isEmpty())
        notes << QStringLiteral("No delimiter is typed: each line is one field.");
    if (sample.unfinishedQuote && complete_)
        notes << QuoteNote(0);
    return notes;
}

// Whether the usual reading of quotes would give other fields.
bool frmImportTxt::MisreadsQuotes(const TextSample& sample) const {
    TextOptions options = Options();
    if (options.quotes != Quotes::OfLine || MixesLineEnds(sample_.form.lineEnds))
        return false;
    options.quotes = Quotes::OfField;
    options.everyEnd = true;
    options.firstHoldsNames = false;
    return SampleOf(app_, sample_, options, kSampleRows).rows != sample.rows;
}

// --- the document ------------------------------------------------------------------------------------------

std::optional<text::Decoded> frmImportTxt::ReadWhole(edit::Waiting& waiting) {
    QByteArray bytes;
    const services::FileResult result = app_.services.files.Read(file_, bytes, waiting.Step(0, kRead));
    std::optional<text::Decoded> read;
    if (result)
        read = encoding_.isEmpty() ? text::Decode(bytes) : text::DecodeAs(bytes, encoding_);
    if (read || result.error == services::FileError::Cancelled)
        return read;
    waiting.Hide();
    Tell(result ? NotInEncoding(encoding_) : edit::ReadFailureText(file_, result));
    return std::nullopt;
}

// What the sample couldn't show, since it stands further down in the file.
bool frmImportTxt::MayGoOn(const text::Decoded& whole, edit::Waiting& waiting) {
    QStringList news;
    if (encoding_.isEmpty() && !whole.warning.isEmpty() && whole.warning != sample_.warning)
        news << whole.warning;
    if (!Options().everyEnd && MixesLineEnds(whole.form.lineEnds) && !MixesLineEnds(sample_.form.lineEnds))
        news << MixedNote();
    if (news.isEmpty())
        return true;
    waiting.Hide();
    return app_.services.prompts.MsgBox(news.join(QStringLiteral("\r\n")), services::Buttons::OkCancel,
                                        services::Icon::Exclamation) == services::Answer::Ok;
}

// False where the dialog stays: the user has been told why, or has cancelled.
bool frmImportTxt::Make(FetchedText& fetched) {
    if (file_.isEmpty())
        return Tell(QStringLiteral("No text file is chosen."));
    if (!refusal_.isEmpty())
        return Tell(refusal_);
    auto waiting = std::make_shared<edit::Waiting>(app_, file_);
    std::optional<text::Decoded> whole = ReadWhole(*waiting);
    if (!whole || !MayGoOn(*whole, *waiting))
        return false;
    MadeText made = exchange::GetResXML(app_, *whole, Options(), waiting->Step(kRead, kMade));
    whole.reset(); // of a large file this is much
    if (made.unfinishedQuote > 0 || made.tooWide > 0 || made.leftOut.count > 0)
        waiting->Hide(); // boxes follow
    if (made.unfinishedQuote > 0 || made.tooWide > 0)
        return Tell(made.tooWide > 0 ? WideNote(made.tooWide) : QuoteNote(made.unfinishedQuote));
    if (made.cancelled || !MayLeaveOut(app_, made.leftOut))
        return false;
    return Prepare(app_, std::move(made.text), std::move(waiting), kMade, fetched);
}

void frmImportTxt::OKButton_Click() {
    OpenIfMade(
        app_, QStringLiteral("frmImportTxt"), [this](FetchedText& fetched) { return Make(fetched); },
        unloaded);
}

} // namespace exchange
