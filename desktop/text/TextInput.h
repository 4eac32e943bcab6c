// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "desktop/text/TextParts.h"
#include <QVariant>

class QInputMethodEvent;

namespace desktop {

// Input methods: text that is composed before it goes in.

/// False when the text is locked.
bool TakeInput(const TextParts& parts, const QInputMethodEvent& event);

/// What an input method asks for; nothing for a question that any widget can answer.
std::optional<QVariant> AnswerInput(const QAbstractScrollArea& area, const TextState& state,
                                    const TextPlaces& places, Qt::InputMethodQuery query);

} // namespace desktop
