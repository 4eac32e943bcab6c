// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/edit/Report.h"
#include "core/edit/Guard.h"
#include "core/edit/View.h"
#include "core/model/Frame.h"
#include <cstdlib>

namespace edit {

namespace {

void TellReport(Application& app, QString report, Tone tone) {
    if (tone == Tone::Quiet) {
        app.services.prompts.Beep();
        Message(app, report.replace(QStringLiteral("\r\n"), QStringLiteral("--")));
    } else {
        app.services.prompts.MsgBox(report, services::Buttons::Ok, services::Icon::Critical,
                                    QStringLiteral("This is not valid XML"), app.CurrentFileName);
    }
}

bool TellOfDocument(Application& app, const std::optional<xml::ParseError>& error, Tone tone) {
    app.lastParseError = error;
    if (error)
        TellReport(app, GetXMLParseErrorString(app, *error), tone);
    else
        Message(app, {});
    return !error;
}

} // namespace

void Message(Application& app, const QString& text) {
    app.frame().StatusBar1().SetPanel(1, text);
}

mXMLEdit::Parsed LoadXMLDocFromString(Application& app, const FetchedText& text, Tone tone,
                                      xml::Prefixes prefixes) {
    return Guarded(app, QStringLiteral("mXMLEdit.LoadXMLDocFromString"), [&] {
        mXMLEdit::Parsed parsed = mXMLEdit::Parse(app, text, prefixes);
        if (parsed.document)
            TellOfDocument(app, parsed.error(), tone);
        return parsed;
    });
}

bool ValidateXML(Application& app, const FetchedText& text, Tone tone, xml::Prefixes prefixes) {
    return LoadXMLDocFromString(app, text, tone, prefixes).good();
}

bool Tell(Application& app, const m_tvXML::ProbeResult& result, Tone tone) {
    if (result.error)
        TellReport(app, mXMLEdit::ErrorLines(*result.error), tone);
    else
        Message(app, {});
    return !result.error;
}

QString GetXMLParseErrorString(Application& app, const xml::ParseError& error) {
    const DocumentWindow* active = app.frame().ActiveForm();
    if (active && Shows(*active, kTextTab))
        PointToErrorPos(app, error);
    return mXMLEdit::ErrorLines(error);
}

void PointToErrorPos(Application& app, const xml::ParseError& error) {
    app.frame().StatusBar1().SetPanel(2, QString::number(error.line) + QStringLiteral(" , ") +
                                             QString::number(error.linepos));
    DocumentWindow* active = app.frame().ActiveForm();
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

} // namespace edit
