// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/OpenMade.h"
#include "core/edit/Guard.h"
#include "core/model/Application.h"
#include "core/model/Frame.h"

namespace exchange {

namespace {
constexpr int kParsed = 750; // thousandths of the work; filling the tree is the rest
}

// Quirk 110.
bool MayLeaveOut(Application& app, const LeftOut& leftOut) {
    if (leftOut.count == 0)
        return true;
    const QString code = QString::number(leftOut.first, 16).toUpper().rightJustified(4, u'0');
    return app.services.prompts.MsgBox(
               QStringLiteral(
                   "%1 character(s) can not stand in XML, the first is U+%2 in row %3. Do you want the "
                   "document without them?")
                   .arg(leftOut.count)
                   .arg(code)
                   .arg(leftOut.row),
               services::Buttons::YesNo, services::Icon::Question) == services::Answer::Yes;
}

bool Prepare(Application& app, text::LongText text, std::shared_ptr<edit::Waiting> waiting, int from,
             FetchedText& fetched) {
    fetched = FetchedText(text);
    fetched.made = true;
    if (!edit::ParseAhead(app, fetched, waiting->Step(from, kParsed)))
        return false;
    if (fetched.parsed && fetched.parsed->parseError().errorCode == 0) {
        waiting->LastStretch();
        fetched.bar = std::move(waiting);
    }
    return true;
}

void OpenMade(Application& app, const FetchedText& fetched, Opens kind) {
    if (kind == Opens::Schema)
        app.frame().NewSXMLFile(fetched, {});
    else
        app.frame().NewXMLFile(fetched, {});
}

void OpenIfMade(Application& app, const QString& form, const std::function<bool(FetchedText&)>& make,
                controls::Event<>& unloaded) {
    edit::Guarded(app, form + QStringLiteral("@OKButton_Click"), [&] {
        FetchedText fetched;
        if (!make(fetched))
            return;
        unloaded();
        OpenMade(app, fetched, Opens::XML);
    });
}

} // namespace exchange
