// QSettingsPropertyBag: the control's settings kept in a QSettings store.
#include <gtest/gtest.h>

#include <QSettings>
#include <QTemporaryDir>

#include "qt/qsettings_property_bag.h"
#include "qt/spreadsheet_widget.h"

namespace tabulon {
namespace {

// A message box would wait for a user that a test does not have.
void FailOnMessage(MessageIcon, const QString& text) {
    ADD_FAILURE() << "unexpected message: " << text.toStdString();
}

class SettingsBag : public ::testing::Test {
protected:
    QString IniPath() const { return dir_.filePath(QStringLiteral("settings.ini")); }
    QTemporaryDir dir_;
};

TEST_F(SettingsBag, KeysLiveUnderTheGroupAndAValueEqualToItsDefaultIsRemoved) {
    QSettings settings(IniPath(), QSettings::IniFormat);
    QSettingsPropertyBag bag(settings, QStringLiteral("Spreadsheet1"));
    const QString key = QStringLiteral("Spreadsheet1/hscGrid.LeftMargin");
    bag.Write("hscGrid.LeftMargin", std::int64_t{900}, std::int64_t{1100});
    EXPECT_TRUE(settings.contains(key));
    EXPECT_TRUE(settings.group().isEmpty());
    bag.Write("hscGrid.LeftMargin", std::int64_t{1100}, std::int64_t{1100});
    EXPECT_FALSE(settings.contains(key));
    EXPECT_EQ(bag.ReadInt32("hscGrid.LeftMargin", 1100), 1100);
}

TEST_F(SettingsBag, StoredTypesReadBackAsTheSameKind) {
    EXPECT_EQ(QSettingsPropertyBag::FromVariant(QVariant(true)), PropertyValue(true));
    EXPECT_EQ(QSettingsPropertyBag::FromVariant(QVariant(12)), PropertyValue(std::int64_t{12}));
    EXPECT_EQ(QSettingsPropertyBag::FromVariant(QVariant(1.5)), PropertyValue(1.5));
    EXPECT_EQ(QSettingsPropertyBag::FromVariant(QVariant(QStringLiteral("-1"))),
              PropertyValue(std::string("-1")));
}

// Booleans, numbers and texts come back from the INI file's text through the control's
// reading rules.
TEST_F(SettingsBag, ControlSettingsSurviveARestartThroughQSettings) {
    gGeneralProperty_type general;
    gButtonProperty_type buttons;
    {
        SpreadsheetWidget first(nullptr, nullptr, FailOnMessage);
        general = first.GeneralProperty();
        general.strFilterCaption = "Family";
        general.intScrollBars = 1;
        general.lngColWidthMin = 1500;
        first.setGeneralProperty(general);
        buttons = first.ButtonProperty();
        buttons.blnPrintVisible = kFalse;
        buttons.blnDefaultPos = kFalse;
        buttons.lngOKLeft = 4000;
        first.setButtonProperty(buttons);
        general = first.GeneralProperty();
        buttons = first.ButtonProperty();
        QSettings settings(IniPath(), QSettings::IniFormat);
        QSettingsPropertyBag bag(settings);
        first.saveSettings(bag);
    }
    QSettings settings(IniPath(), QSettings::IniFormat);
    QSettingsPropertyBag bag(settings);
    SpreadsheetWidget restored(nullptr, &bag, FailOnMessage);
    EXPECT_EQ(restored.GeneralProperty(), general);
    EXPECT_EQ(restored.ButtonProperty(), buttons);
}

}  // namespace
}  // namespace tabulon
