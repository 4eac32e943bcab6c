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

/// The warnings while it lives.
class Warnings {
public:
    Warnings() {
        Told().clear();
        before_ = qInstallMessageHandler(
            [](QtMsgType, const QMessageLogContext&, const QString& text) { Told() << text; });
    }
    ~Warnings() { qInstallMessageHandler(before_); }
    Warnings(const Warnings&) = delete;
    Warnings& operator=(const Warnings&) = delete;
    static QStringList& Told() {
        static QStringList told;
        return told;
    }

private:
    QtMessageHandler before_;
};

TEST(BindControls, EveryControlOfADialogHasItsWidgetAndEveryWidgetItsControl) {
    test::TestApp t;
    frmFind find(t.app());
    frmOptions options(t.app());
    frmEditNodes nodes(t.app());
    const Warnings warnings;
    const desktop::FindDialog findDialog(find, nullptr);
    const desktop::OptionsDialog optionsDialog(options, nullptr);
    const desktop::EditNodesDialog nodesDialog(nodes, nullptr);
    EXPECT_EQ(Warnings::Told().join(u'\n').toStdString(), "");
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
    const Warnings warnings;
    desktop::BindControls(form, {{"cmbLine", &box}, {"txtGone", &text}});
    EXPECT_EQ(Warnings::Told(), QStringList({QStringLiteral("frmAny.cmbLine: another kind of widget"),
                                             QStringLiteral("frmAny.txtGone: no widget"),
                                             QStringLiteral("frmAny.cmdLeft: no control")}));
}

} // namespace
