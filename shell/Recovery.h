// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/Application.h"

namespace shell {

/// Offers the documents that earlier runs left behind unsaved. Yes opens them as changed documents, No drops
/// them for good, Cancel keeps them for the next start. Nothing happens where there are none.
void OfferUnsavedWork(Application& app);

} // namespace shell
