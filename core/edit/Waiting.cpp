// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/edit/Waiting.h"
#include "core/model/Application.h"

namespace edit {

namespace {
constexpr int kWhole = 1000;
}

Waiting::Waiting(Application& app, const QString& what) : progress_(app.services.progress), what_(what) {
    progress_.Begin(what_);
}

Waiting::~Waiting() {
    progress_.End();
}

void Waiting::Hide() {
    progress_.End();
    progress_.Begin(what_);
}

WaitStep Waiting::Step(int from, int to) {
    return [this, from, to](qint64 done, qint64 total) {
        return total > 0 ? progress_.Step(from + (to - from) * done / total, kWhole)
                         : progress_.Step(done, 0);
    };
}

bool ParseAhead(Application& app, FetchedText& fetched, const WaitStep& step) {
    if (fetched.text.holdsOnly(u" "))
        return true;
    ++app.work.parses;
    auto parsed = std::make_shared<xml::ParsedDocument>();
    parsed->loadXML(fetched.text, {}, step, xml::Prefixes::Declared);
    if (parsed->wasStopped())
        return false;
    fetched.parsed = std::move(parsed);
    return true;
}

} // namespace edit
