// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/edit/TextWay.h"

namespace textview {

/// The text is written anew from the tree, whole: it stands in the text view, coloured and with its history.
const edit::TextWay& WrittenAnew();

} // namespace textview
