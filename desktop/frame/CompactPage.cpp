// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/frame/CompactPage.h"
#include "desktop/base/Twips.h"
#include "desktop/text/TextView.h"
#include "schema/CompactState.h"
#include "ui_frmXMLEdit.h"

namespace desktop {

namespace {

// What is beside it takes the rest of the page.
constexpr int kRest = 10000;

} // namespace

CompactPage::CompactPage(DocumentWindow& window, const Ui::frmXMLEdit& ui)
    : tree_(schema::CompactOf(window).tvRes, *ui.tvRes, nullptr),
      list_(schema::CompactOf(window).lvRes, {*ui.lvResPages, *ui.lvRes, *ui.lvResIcons}, nullptr),
      cells_(window, *ui.lvRes), segment_(schema::CompactOf(window).rtxtSeg, *ui.rtxtSeg, nullptr) {
    ConnectSplitters(window, ui);
}

void CompactPage::ConnectSplitters(DocumentWindow& window, const Ui::frmXMLEdit& ui) {
    const schema::CompactState& state = schema::CompactOf(window);
    ui.compactview->setStretchFactor(0, 0);
    ui.compactview->setStretchFactor(1, 1);
    ui.compactview->setSizes({ToPixels(state.msngCvV), kRest});
    ui.pctCvSh->setStretchFactor(0, 0);
    ui.pctCvSh->setStretchFactor(1, 1);
    ui.pctCvSh->setSizes({ToPixels(state.msngCvH), kRest});
    connect(ui.compactview, &QSplitter::splitterMoved, this,
            [&window](int position) { schema::SetCvSVSplitPosition(window, ToTwips(position)); });
    connect(ui.pctCvSh, &QSplitter::splitterMoved, this,
            [&window](int position) { schema::SetCvSHSplitPosition(window, ToTwips(position)); });
}

std::vector<QWidget*> CompactPage::Panes(const Ui::frmXMLEdit& ui) {
    return {ui.tvRes, ui.lvRes, ui.rtxtSeg};
}

} // namespace desktop
