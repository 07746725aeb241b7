// QSettingsPropertyBag: the control's design-time settings kept in a QSettings store,
// for hosts that save their forms' settings the Qt way. Keys are the control's own
// ("GeneralProperty.lngTreeViewWidth", "hscGrid.LeftMargin" ...), optionally under a group.
//
// Decisions:
// - Booleans, integers, doubles and strings are stored as such. What comes back is
//   read by the type QSettings reports: an INI file gives every value back as text,
//   which the control's reading rules convert ("true", "-1", "1500").
// - A value equal to its default (same type and value) is removed, not stored.
// - The bag does not own the QSettings; it must outlive the bag. Keys are relative
//   to the settings' current group, which the bag never changes.
#pragma once

#include <QSettings>
#include <QString>
#include <QVariant>
#include <string>

#include "platform/property_bag.h"

namespace tabulon {

class QSettingsPropertyBag : public PropertyBag {
public:
    // group: a group every key is kept under ("" for none).
    explicit QSettingsPropertyBag(QSettings& settings, QString group = {});

    PropertyValue Read(const std::string& key, const PropertyValue& defaultValue) override;
    void Write(const std::string& key, const PropertyValue& value,
               const PropertyValue& defaultValue) override;

    // The conversions used for storing and reading back (unsupported QVariant types
    // read as their text).
    static QVariant ToVariant(const PropertyValue& value);
    static PropertyValue FromVariant(const QVariant& value);

private:
    QString KeyPath(const std::string& key) const;

    QSettings& settings_;
    QString group_;
};

}  // namespace tabulon
