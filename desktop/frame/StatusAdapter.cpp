// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/frame/StatusAdapter.h"
#include "desktop/base/Listen.h"
#include <QTextDocument>

namespace desktop {

namespace {
constexpr qsizetype kLongest = 1000;
} // namespace

StatusAdapter::StatusAdapter(controls::StatusBar& model, QStatusBar& widget, QObject* parent)
    : QObject(parent), model_(model) {
    for (int panel = 1; panel <= model.Count(); ++panel) {
        auto* label = new QLabel(&widget);
        label->setObjectName(QStringLiteral("Panel%1").arg(panel));
        label->setTextFormat(Qt::PlainText);
        if (panel == 1) // the messages take what is left
            label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
        widget.addWidget(label, panel == 1 ? 1 : 0);
        labels_.push_back(label);
        Show(panel);
    }
    Listen(model.changed, this, [this](int panel) { Show(panel); });
}

void StatusAdapter::Show(int panel) {
    QLabel& label = *labels_[static_cast<std::size_t>(panel - 1)];
    const QString text = model_.Panel(panel).left(kLongest);
    label.setText(text.simplified());
    label.setToolTip(text.isEmpty() ? QString() : Qt::convertFromPlainText(text));
}

} // namespace desktop
