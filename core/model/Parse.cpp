// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/DocumentWindow.h"
#include "core/model/Frame.h"
#include "core/model/mXMLEdit.h"
#include <QThread>
#include <utility>

// Text to parsed document, and the report on what the parser disliked.
namespace mXMLEdit {

namespace {

void SetStatus(Application& app, int panel, const QString& text) {
    if (app.frame)
        app.frame->StatusBar1().SetPanel(panel, text);
}

DocumentWindow* ActiveForm(Application& app) {
    return app.frame ? app.frame->ActiveForm() : nullptr;
}

} // namespace

bool LoadXMLDocFromString(Application& app, const FetchedText& text,
                          std::shared_ptr<xml::ParsedDocument>& document, bool quiet) try {
    if (text.text.isEmpty())
        return false;
    document = std::exchange(text.parsed, nullptr);
    if (!document) {
        document = std::make_shared<xml::ParsedDocument>();
        document->loadXML(text.text);
    }
    if (document->parseError().errorCode == 0) {
        SetStatus(app, 1, {});
        app.lastParseError.reset();
        return true;
    }
    app.lastParseError = document->parseError();
    QString report = GetXMLParseErrorString(app, document->parseError());
    if (quiet) {
        app.services.prompts.Beep();
        SetStatus(app, 1, report.replace(QStringLiteral("\r\n"), QStringLiteral("--")));
    } else {
        app.services.prompts.MsgBox(report, services::Buttons::Ok, services::Icon::Critical,
                                    QStringLiteral("This is not valid XML"));
    }
    return false;
} catch (const text::Fault& fault) {
    ErrorReportBox(app, fault, QStringLiteral("mXMLEdit.LoadXMLDocFromString"));
    return false;
}

bool ValidateXML(Application& app, const FetchedText& text, bool quiet) {
    std::shared_ptr<xml::ParsedDocument> document;
    return LoadXMLDocFromString(app, text, document, quiet);
}

QString GetXMLParseErrorString(Application& app, const xml::ParseError& error) {
    const DocumentWindow* active = ActiveForm(app);
    if (active && active->tbsXML.SelectedKey() == QStringLiteral("textview"))
        PointToErrorPos(app, error);
    const QStringList lines{QStringLiteral("ErrorCode:") + QString::number(error.errorCode),
                            QStringLiteral("FilePos:") + QString::number(error.filepos),
                            QStringLiteral("Line:") + QString::number(error.line),
                            QStringLiteral("LinePos:") + QString::number(error.linepos),
                            QStringLiteral("Reason:") + error.reason,
                            QStringLiteral("SrcText:") + error.srcText,
                            QStringLiteral("Url:") + error.url};
    return lines.join(QStringLiteral("\r\n"));
}

void PointToErrorPos(Application& app, const xml::ParseError& error) {
    SetStatus(app, 2, QString::number(error.line) + QStringLiteral(" , ") + QString::number(error.linepos));
    DocumentWindow* active = ActiveForm(app);
    if (!active)
        return;
    const qsizetype place = error.filepos - 1;
    // The two panes differ for an error without a place: the first selects the first character, the second
    // the second one.
    if (active->brtxtXML2Focus)
        active->rtxtXML2.SetSelStart(std::abs(place));
    else
        active->rtxtXML.SetSelStart(std::max<qsizetype>(place, 0));
    active->TextInUse().SetSelLength(1);
}

QString convertStringToXML(const QString& text) {
    text::CompactBuilder plain;
    plain.append(text);
    text::CompactBuilder escaped;
    escaped.appendEscaped(plain.view());
    return escaped.view().toString();
}

void Delay(Application& app, int milliseconds) {
    const int start = app.services.clock.MillisecondOfHour();
    while (true) {
        const int passed = app.services.clock.MillisecondOfHour() - start;
        if (passed < 0 || passed >= milliseconds)
            return;
        QThread::yieldCurrentThread();
    }
}

void LoadEncoding(controls::ComboBox& combo) {
    static const QStringList labels{
        QStringLiteral("UTF-7"),    QStringLiteral("UTF-8"),   QStringLiteral("UTF-16"),
        QStringLiteral("GB2312"),   QStringLiteral("8859-1"),  QStringLiteral("8859-2"),
        QStringLiteral("ASCII"),    QStringLiteral("ISO-646"), QStringLiteral("850"),
        QStringLiteral("1252"),     QStringLiteral("1255"),    QStringLiteral("SHIFT-JIS"),
        QStringLiteral("MS-KANJI"), QStringLiteral("BIG5")};
    for (int i = 0; i < labels.size(); ++i)
        combo.AddItem(labels[i], i);
}

void FindEncoding(const QString& name, controls::ComboBox& combo) {
    if (const int index = static_cast<int>(combo.Items().indexOf(name)); index >= 0)
        combo.SetListIndex(index);
}

} // namespace mXMLEdit
