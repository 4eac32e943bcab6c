// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/bind/BindControls.h"
#include "desktop/base/Listen.h"
#include "desktop/bind/BoxAdapter.h"
#include "desktop/bind/ChoiceAdapter.h"
#include "desktop/bind/LineAdapter.h"
#include "desktop/bind/TabAdapter.h"
#include <QAbstractButton>
#include <QLabel>
#include <QRegularExpression>
#include <QSet>

namespace desktop {

namespace {

/// Binds one control to one widget. Each tells whether the widget is of a kind that can show the control.
struct Binding {
    QWidget& form;
    QWidget& widget;

    bool operator()(controls::TextBox* model) const {
        if (auto* line = qobject_cast<QLineEdit*>(&widget))
            new LineAdapter(*model, *line, &form);
        else if (auto* box = qobject_cast<QPlainTextEdit*>(&widget))
            new BoxAdapter(*model, *box, &form);
        else
            return false;
        return true;
    }

    bool operator()(controls::ComboBox* model) const {
        auto* box = qobject_cast<QComboBox*>(&widget);
        if (box)
            new ChoiceAdapter(*model, *box, &form);
        return box != nullptr;
    }

    bool operator()(controls::TabStrip* model) const {
        auto* bar = qobject_cast<QTabBar*>(&widget);
        auto* stack = form.findChild<QStackedWidget*>();
        if (!bar || !stack)
            return false;
        QHash<QString, QWidget*> pages;
        for (int i = 0; i < stack->count(); ++i)
            pages.insert(stack->widget(i)->objectName(), stack->widget(i));
        new TabAdapter(*model, *bar, *stack, std::move(pages), &form);
        return true;
    }

    bool operator()(controls::Label* model) const {
        auto* label = qobject_cast<QLabel*>(&widget);
        if (label)
            Follow(*model, [model, label] {
                label->setText(model->Caption());
                label->setVisible(model->Visible());
            });
        return label != nullptr;
    }

    bool operator()(controls::CommandButton* model) const {
        auto* button = Button([model] { model->Click(); });
        if (!button)
            return false;
        if (!model->Caption.isEmpty())
            button->setText(model->Caption);
        Follow(*model, [model, button] { button->setEnabled(model->Enabled()); });
        return true;
    }

    bool operator()(controls::CheckBox* model) const {
        auto* button = Button(
            [model, box = &widget] { model->UserSet(static_cast<QAbstractButton*>(box)->isChecked()); });
        if (button)
            Follow(*model, [model, button] { button->setChecked(model->Value() == 1); });
        return button != nullptr;
    }

    // The button that isn't chosen any more is unchecked because another one of its group is checked.
    bool operator()(controls::OptionButton* model) const {
        auto* button = Button([model] {
            if (!model->Value())
                model->UserChose();
        });
        if (button)
            Follow(*model, [model, button] {
                if (model->Value())
                    button->setChecked(true);
            });
        return button != nullptr;
    }

    bool operator()(const std::function<void(QWidget&)>& bind) const {
        bind(widget);
        return true;
    }

private:
    template <typename Act> QAbstractButton* Button(Act act) const {
        auto* button = qobject_cast<QAbstractButton*>(&widget);
        if (button)
            QObject::connect(button, &QAbstractButton::clicked, button, act);
        return button;
    }
    template <typename Control, typename Show> void Follow(Control& model, Show show) const {
        Listen(model.changed, &widget, show);
        show();
    }
};

void Complain(const QWidget& form, const QString& name, const char* what) {
    qWarning("%s.%s: %s", qUtf8Printable(form.objectName()), qUtf8Printable(name), what);
}

} // namespace

void BindControls(QWidget& form, const std::vector<NamedControl>& controls) {
    QSet<QString> given;
    for (const NamedControl& control : controls) {
        const QString name = QLatin1String(control.name);
        given += name;
        auto* widget = form.findChild<QWidget*>(name);
        if (!widget)
            Complain(form, name, "no widget");
        else if (!std::visit(Binding{form, *widget}, control.model))
            Complain(form, name, "another kind of widget");
    }
    static const QRegularExpression kControl(QStringLiteral("^(cmd|txt|cmb|chk|opt|tbs)[A-Z]"));
    for (const QWidget* widget : form.findChildren<QWidget*>(kControl))
        if (!given.contains(widget->objectName()))
            Complain(form, widget->objectName(), "no control");
}

} // namespace desktop
