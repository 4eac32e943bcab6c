// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/xml/ErrorReport.h"

namespace xml {

/// The sentence for a name that breaks a rule for namespaces; empty for any other error.
QString NamespaceReason(const Complaint& complaint);

} // namespace xml
