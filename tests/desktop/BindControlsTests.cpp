// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/bind/BindControls.h"
#include "desktop/dialogs/EditNodesDialog.h"
#include "desktop/dialogs/FindDialog.h"
#include "desktop/dialogs/OptionsDialog.h"
#include "tests/support/TestApp.h"
#include <QLineEdit>
#include <QPushButton>
#include <gtest/gtest.h>

namespace {

/// What is told as warnings while `act` runs.
template <typename Act> QStringList WarningsOf(Act act) {
    static QStringList told;
    told.clear();
    const auto before = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext&, const QString& text) { told << text; });
    act();
    qInstallMessageHandler(before);
    return told;
}

TEST(BindControls, EveryControlOfADialogHasItsWidgetAndEveryWidgetItsControl) {
    test::TestApp t;
    textview::frmFind find(t.app());
    frmOptions options(t.app());
    nodes::frmEditNodes nodes(t.app());
    const QStringList told = WarningsOf([&] {
        const desktop::FindDialog findDialog(find, nullptr);
        const desktop::OptionsDialog optionsDialog(options, nullptr);
        const desktop::EditNodesDialog nodesDialog(nodes, nullptr);
    });
    EXPECT_EQ(told.join(u'\n').toStdString(), "");
}

TEST(BindControls, WhatHasNoPartnerIsTold) {
    QWidget form;
    form.setObjectName(QStringLiteral("frmAny"));
    QPushButton left(&form);
    left.setObjectName(QStringLiteral("cmdLeft"));
    QLineEdit line(&form);
    line.setObjectName(QStringLiteral("cmbLine"));
    controls::ComboBox box;
    controls::TextBox text;
    EXPECT_EQ(WarningsOf([&] {
                  desktop::BindControls(form, {{"cmbLine", &box}, {"txtGone", &text}});
              }),
              QStringList({QStringLiteral("frmAny.cmbLine: another kind of widget"),
                           QStringLiteral("frmAny.txtGone: no widget"),
                           QStringLiteral("frmAny.cmdLeft: no control")}));
}

} // namespace
