// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/edit/Rewriting.h"
#include <QStringList>

namespace edit {

namespace {

QString Counted(int count, const char* one, const char* many) {
    return QStringLiteral("%1 %2").arg(count).arg(QLatin1String(count == 1 ? one : many));
}

QStringList Named(const xml::Losses& losses) {
    const struct {
        int count;
        const char *one, *many;
    } kinds[] = {
        {losses.documentTypes, "document type declaration", "document type declarations"},
        {losses.sections, "CDATA section (with the text in it)", "CDATA sections (with the text in them)"},
        {losses.references, "reference to an entity (its text stays)",
         "references to entities (their texts stay)"},
        {losses.blanks, "text of blanks between nodes", "texts of blanks between nodes"},
        {losses.preserved, "element whose spacing is to be preserved (it changes)",
         "elements whose spacing is to be preserved (it changes)"},
    };
    QStringList lines;
    for (const auto& kind : kinds) {
        if (kind.count > 0)
            lines << QStringLiteral("  ") + Counted(kind.count, kind.one, kind.many);
    }
    return lines;
}

QString Question(const xml::Losses& losses, EditOf edited) {
    return QStringLiteral("The text of this document is now written anew from the tree, which can "
                          "not hold all of it. This goes:\r\n\r\n%1\r\n\r\nOK goes on, here and with all "
                          "that is done to this document later. %2")
        .arg(Named(losses).join(QStringLiteral("\r\n")),
             edited == EditOf::Text ? QStringLiteral("Cancel keeps the text as it was typed.")
                                    : QStringLiteral("Cancel takes the change back."));
}

// A third answer, the text as it is written for good, would be one more button here and one more standing of
// the document's.
bool Agrees(DocumentWindow& window, const xml::Losses& losses, EditOf edited) {
    return window.app.services.prompts.MsgBox(Question(losses, edited), services::Buttons::OkCancel,
                                              services::Icon::Exclamation, RewritingTitle(),
                                              window.Caption) == services::Answer::Ok;
}

} // namespace

QString RewritingTitle() {
    return QStringLiteral("Writing the document anew");
}

void AskAgain(DocumentWindow& window) {
    if (window.bond.rewriting == Rewriting::Agreed)
        window.bond.rewriting = Rewriting::Unasked;
}

bool MayRewrite(DocumentWindow& window, const xml::Losses& losses, EditOf edited) {
    Rewriting& rewriting = window.bond.rewriting;
    if (!losses.any() || rewriting == Rewriting::Agreed)
        return true;
    if (edited == EditOf::Text && rewriting == Rewriting::TextStays)
        return false;
    const bool agrees = Agrees(window, losses, edited);
    if (agrees)
        rewriting = Rewriting::Agreed;
    else if (edited == EditOf::Text)
        rewriting = Rewriting::TextStays;
    return agrees;
}

} // namespace edit
