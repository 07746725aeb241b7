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
