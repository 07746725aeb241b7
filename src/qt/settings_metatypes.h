// The control's two settings records as Qt value types, so that they travel in
// QVariant and serve as the types of SpreadsheetWidget's GeneralProperty and
// ButtonProperty properties. The records are the core's own (control/settings_records.h):
// booleans are 16-bit, true -1 and false 0.
#pragma once

#include <QMetaType>

#include "control/settings_records.h"

Q_DECLARE_METATYPE(tabulon::gButtonProperty_type)
Q_DECLARE_METATYPE(tabulon::gGeneralProperty_type)
