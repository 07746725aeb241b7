#include "qt/qsettings_property_bag.h"

#include <QMetaType>
#include <utility>

#include "qt/qt_text.h"

namespace tabulon {

QSettingsPropertyBag::QSettingsPropertyBag(QSettings& settings, QString group)
    : settings_(settings), group_(std::move(group)) {}

QString QSettingsPropertyBag::KeyPath(const std::string& key) const {
    const QString name = ToQString(key);
    return group_.isEmpty() ? name : group_ + QLatin1Char('/') + name;
}

QVariant QSettingsPropertyBag::ToVariant(const PropertyValue& value) {
    if (const auto* b = std::get_if<bool>(&value)) return QVariant(*b);
    if (const auto* i = std::get_if<std::int64_t>(&value)) return QVariant(qlonglong{*i});
    if (const auto* d = std::get_if<double>(&value)) return QVariant(*d);
    return QVariant(ToQString(std::get<std::string>(value)));
}

PropertyValue QSettingsPropertyBag::FromVariant(const QVariant& value) {
    switch (value.metaType().id()) {
        case QMetaType::Bool:
            return value.toBool();
        case QMetaType::Int:
        case QMetaType::UInt:
        case QMetaType::Long:
        case QMetaType::LongLong:
        case QMetaType::Short:
        case QMetaType::Char:
        case QMetaType::SChar:
        case QMetaType::UChar:
        case QMetaType::UShort:
            return std::int64_t{value.toLongLong()};
        case QMetaType::Double:
        case QMetaType::Float:
            return value.toDouble();
        default:
            return ToStdString(value.toString());
    }
}

PropertyValue QSettingsPropertyBag::Read(const std::string& key,
                                         const PropertyValue& defaultValue) {
    const QString path = KeyPath(key);
    if (!settings_.contains(path)) return defaultValue;
    return FromVariant(settings_.value(path));
}

void QSettingsPropertyBag::Write(const std::string& key, const PropertyValue& value,
                                 const PropertyValue& defaultValue) {
    const QString path = KeyPath(key);
    if (value == defaultValue) {
        settings_.remove(path);
    } else {
        settings_.setValue(path, ToVariant(value));
    }
}

}  // namespace tabulon
