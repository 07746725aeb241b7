// The property-page dialogs driven with real Qt input: what they show of the control,
// the numeric boxes' key and lost-focus rules through a QLineEdit, and Apply, OK and
// Cancel writing (or not writing) the record to the control.
#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <memory>
#include <string>
#include <vector>

#include "control/control_access.h"
#include "propertypages/property_page.h"
#include "qt/pages/property_page_dialog.h"
#include "qt/qt_text.h"
#include "qt/spreadsheet_widget.h"

namespace tabulon {
namespace {

void Settle() {
    for (int i = 0; i < 3; ++i)
        QCoreApplication::processEvents();
}

// A shown control and one page dialog on it, every message box (the control's and
// the page's) and every settings change recorded as "kind: text" lines.
class PageDialogTest : public ::testing::Test {
protected:
    // Opens the dialog on a new control.
    void Open(PropertyPageDialog::Kind kind) {
        const auto record = [this](MessageIcon icon, const QString& text) {
            messages.push_back(std::string(MessageIconName(icon)) + ": " + ToStdString(text));
        };
        widget = std::make_unique<SpreadsheetWidget>(nullptr, nullptr, record);
        QObject::connect(widget.get(), &SpreadsheetWidget::PropertyChanged,
                         [this](const QString& name) { changes.push_back(ToStdString(name)); });
        widget->resize(600, 450);
        widget->show();
        Settle();
        dialog = std::make_unique<PropertyPageDialog>(kind, *widget, nullptr, record);
        dialog->show();
        dialog->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
        Settle();
    }

    template <class W>
    W* Find(const char* name, int index = -1) {
        auto* found = qobject_cast<W*>(dialog->widgetFor(name, index));
        EXPECT_NE(found, nullptr) << name << " " << index;
        return found;
    }

    void TypeOver(QLineEdit* edit, const QString& text) {
        QTest::mouseClick(edit, Qt::LeftButton);
        Settle();
        QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(edit, Qt::Key_Backspace);
        QTest::keyClicks(edit, text);
        Settle();
    }

    // With the keyboard, as a user does.
    void Choose(QComboBox* combo, const QString& item) {
        combo->setFocus(Qt::TabFocusReason);
        Settle();
        const int target = combo->findText(item);
        ASSERT_GE(target, 0) << item.toStdString();
        for (int guard = 0; combo->currentIndex() != target && guard < combo->count(); ++guard) {
            QTest::keyClick(combo, combo->currentIndex() < target ? Qt::Key_Down : Qt::Key_Up);
            Settle();
        }
        ASSERT_EQ(combo->currentIndex(), target);
    }

    void Click(QWidget* target) {
        QTest::mouseClick(target, Qt::LeftButton);
        Settle();
    }

    std::unique_ptr<SpreadsheetWidget> widget;
    std::unique_ptr<PropertyPageDialog> dialog;
    std::vector<std::string> messages;
    std::vector<std::string> changes;
};

// A letter typed into a numeric box is taken back out and marks the page changed.
// Apply writes the record in one assignment and keeps the dialog open; Cancel then
// closes it without writing what was typed since.
TEST_F(PageDialogTest, ApplyWritesTheRecordInOneAssignmentAndCancelWritesNothing) {
    Open(PropertyPageDialog::Kind::General);
    const gGeneralProperty_type before = widget->GeneralProperty();
    QLineEdit* box = Find<QLineEdit>("txtRowHeightMin");
    Click(box);
    QTest::keyClick(box, Qt::Key_End);
    QTest::keyClicks(box, QStringLiteral("5x"));
    Settle();
    EXPECT_EQ(box->text(), QStringLiteral("3505"));
    EXPECT_EQ(box->cursorPosition(), 4);
    EXPECT_TRUE(dialog->applyButton()->isEnabled());
    TypeOver(box, QString::number(before.lngRowHeightMin));

    Click(Find<QCheckBox>("chkAllowBigSelection"));
    Choose(Find<QComboBox>("cboScrollBars"), QStringLiteral("Advanced"));
    TypeOver(Find<QLineEdit>("txtFilterCaption"), QStringLiteral("Family"));

    Click(dialog->applyButton());

    const gGeneralProperty_type after = widget->GeneralProperty();
    EXPECT_EQ(after.blnAllowBigSelection != 0, before.blnAllowBigSelection == 0);
    EXPECT_EQ(after.intScrollBars, 1);
    EXPECT_EQ(after.strFilterCaption, "Family");
    EXPECT_EQ(changes, std::vector<std::string>{"GeneralProperty"});
    EXPECT_FALSE(dialog->applyButton()->isEnabled());
    EXPECT_TRUE(dialog->isVisible());

    TypeOver(Find<QLineEdit>("txtFilterCaption"), QStringLiteral("Changed"));
    Click(dialog->cancelButton());
    EXPECT_EQ(widget->GeneralProperty().strFilterCaption, "Family");
    EXPECT_EQ(changes.size(), 1u);
    EXPECT_EQ(dialog->result(), QDialog::Rejected);
}

// A numeric box is clamped, with its message, when it is left: by a click elsewhere, and
// when Enter presses OK without moving Qt's focus, before the page applies the value.
TEST_F(PageDialogTest, LeavingANumericBoxOrPressingOkWithEnterClampsItWithTheMessage) {
    Open(PropertyPageDialog::Kind::General);
    QLineEdit* column = Find<QLineEdit>("txtColWidthMin");
    TypeOver(column, QStringLiteral("900"));
    EXPECT_TRUE(messages.empty()) << "nothing is clamped while the box has the focus";
    QLineEdit* width = Find<QLineEdit>("txtTreeViewWidth");
    TypeOver(width, QStringLiteral("1499"));  // the click into it leaves the column box
    EXPECT_EQ(column->text(), QStringLiteral("1080"));

    QTest::keyClick(width, Qt::Key_Return);
    Settle();

    EXPECT_EQ(messages, (std::vector<std::string>{"information: Value cannot be less than 1080",
                                                  "information: Value cannot be less than 1500"}));
    EXPECT_EQ(widget->GeneralProperty().lngTreeViewWidth, 1500);
    EXPECT_EQ(widget->GeneralProperty().lngColWidthMin, 1080);
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    EXPECT_FALSE(dialog->isVisible());
}

// Hiding every button is refused and OK keeps the dialog open; with one shown again,
// OK applies the record to the control's buttons.
TEST_F(PageDialogTest, HidingEveryButtonIsRefusedAndHidingThreeIsApplied) {
    Open(PropertyPageDialog::Kind::Buttons);
    for (int i = 0; i < 4; ++i)
        Choose(Find<QComboBox>("cboVisible", i), QStringLiteral("False"));
    Click(dialog->okButton());
    EXPECT_EQ(messages, std::vector<std::string>{"information: All buttons cannot be hide."});
    EXPECT_TRUE(changes.empty());
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_TRUE(dialog->applyButton()->isEnabled());

    Choose(Find<QComboBox>("cboVisible", 0), QStringLiteral("True"));
    Click(dialog->okButton());

    Form& form = FormOf(widget->control());
    EXPECT_TRUE(widget->widgetFor(form.cmdPrint)->isVisible());
    EXPECT_FALSE(widget->widgetFor(form.cmdOK)->isVisible());
    EXPECT_FALSE(widget->widgetFor(form.cmdCancel)->isVisible());
    EXPECT_FALSE(widget->widgetFor(form.cmdHelp)->isVisible());
    EXPECT_EQ(changes, std::vector<std::string>{"ButtonProperty"});
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
}

TEST_F(PageDialogTest, TheDialogClosesWhenTheControlGoesAway) {
    Open(PropertyPageDialog::Kind::General);
    widget.reset();
    Settle();

    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(dialog->result(), QDialog::Rejected);
    EXPECT_TRUE(dialog->page().selectedControls().empty());
}

}  // namespace
}  // namespace tabulon
