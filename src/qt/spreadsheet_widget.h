// SpreadsheetWidget: the embeddable spreadsheet control for Qt hosts. A host places it
// on a form, hands it a document (Load, LoadXML) and listens to its signals; every
// behaviour is the headless control's (Generic_SP_Control), which the widget owns.
//
// What the widget adds:
// - One Qt widget bound to each model of the control's form (tree, splitter, filter
//   frame with label and combo, grid, the two scroll bars, four buttons, four cell
//   editors), placed from the model's twips with the screen's logical DPI. The two
//   hidden conversion helpers (unitNumForCnv, unitDropForCnv) are never shown and
//   get no widget.
// - Message boxes as QMessageBoxes (QtMessageSink), or to a handler installed with
//   setMessageHandler.
// - The control's events as Qt signals, emitted synchronously: connect directly (the
//   default between objects of the GUI thread). AppGridEventHandler's element may be
//   changed by the slot; it is valid only while the signal runs. The wait cursor is
//   the application's override cursor while the host validates a column.
// - The host's size in pixels is the control's size in twips (pixels * 1440 / DPI);
//   every resize runs the control's resize handling, and the first showing runs the
//   control's first showing (Show) before it. The widget's minimum size is the
//   control's smallest layout (8200 x 6300 twips) at the screen's DPI, so layouts and
//   windows that hold it never cut off its buttons.
// - The wheel over a cell editor scrolls the grid below it, as over the grid.
// - Keyboard focus kept with the model's: the focused component's widget has Qt's
//   focus; when no component has it, the widget itself may take it, and keys then
//   belong to the host (Tab leaves the control as usual).
// - Undo and redo (Undo, Redo; Ctrl+Z, Ctrl+Y and Ctrl+Shift+Z while the control has
//   the focus, before any shortcut of the host), the modified flag and the
//   ProtectiveEditing switch. canUndoChanged, canRedoChanged and modifiedChanged are
//   emitted when the value changed, once the outermost user's gesture or host call
//   that changed it has finished: a slot that calls the widget while one of the
//   control's signals runs sees them afterwards.
// - Ranges, copy, paste, fill and clear (Shift+click, drag, Shift+arrows, Ctrl+C,
//   Ctrl+V, Ctrl+D, Ctrl+R, Delete; control().Copy, Paste ...) with the desktop's
//   clipboard: a copy puts text/plain and text/html there, a paste reads text/plain.
//
// - Besides the control's interface (additions that change nothing it does): the
//   reason a red cell is red as its tooltip and a mark on it and on the editor open
//   over it, marks on the tree's nodes, the find bar (Ctrl+F), the access keys (F9,
//   F12, Alt+V/O/C/H; see view/access_keys.h) and a table for assistive technology.
//
// Failures: members the control lets fail (the moves, DisplayColWidth ...) throw
// their RuntimeFailure to the caller, as the control reaches its host. A failure
// during a user's gesture is shown as a critical message with its description.
#pragma once

#include <QString>
#include <QWidget>
#include <memory>

#include "control/generic_sp_control.h"
#include "control/settings_records.h"
#include "platform/property_bag.h"
#include "platform/xml/xml_document.h"
#include "qt/message_handler.h"
#include "qt/settings_metatypes.h"

namespace tabulon {

class Component;
class ComponentBinding;
class TwipsScale;

class SpreadsheetWidget : public QWidget {
    Q_OBJECT
    // Writing XML, FilterValue or DisplayColWidth is accepted and discarded.
    Q_PROPERTY(QString XML READ XML WRITE setXML)
    Q_PROPERTY(QString FilterValue READ FilterValue WRITE setFilterValue)
    Q_PROPERTY(QString DisplayColWidth READ DisplayColWidth WRITE setDisplayColWidth)
    Q_PROPERTY(tabulon::gGeneralProperty_type GeneralProperty READ GeneralProperty WRITE
                   setGeneralProperty)
    Q_PROPERTY(
        tabulon::gButtonProperty_type ButtonProperty READ ButtonProperty WRITE setButtonProperty)
    // Off by default: see docs/embedding.md for what it changes.
    Q_PROPERTY(bool ProtectiveEditing READ ProtectiveEditing WRITE setProtectiveEditing)
    Q_PROPERTY(bool canUndo READ canUndo NOTIFY canUndoChanged)
    Q_PROPERTY(bool canRedo READ canRedo NOTIFY canRedoChanged)
    Q_PROPERTY(bool modified READ isModified WRITE setModified NOTIFY modifiedChanged)
    // Beyond the original interface (Generic_SP_Control has the details).
    Q_PROPERTY(qulonglong MaxDocumentBytes READ MaxDocumentBytes WRITE setMaxDocumentBytes)
    Q_PROPERTY(QString LastSaveError READ LastSaveError)

public:
    using MessageHandler = tabulon::MessageHandler;

    // A new control. With savedSettings the control is restored from that bag (read
    // once, here); without, it gets its first-time initialisation. messages, when
    // given, is installed before anything runs (see setMessageHandler), so it also
    // gets what restoring the settings shows.
    explicit SpreadsheetWidget(QWidget* parent = nullptr, PropertyBag* savedSettings = nullptr,
                               MessageHandler messages = {});
    ~SpreadsheetWidget() override;

    // Message boxes go to handler instead of a modal QMessageBox (empty: boxes again).
    void setMessageHandler(MessageHandler handler);
    // Saves the control's settings into bag (WriteProperties).
    void saveSettings(PropertyBag& bag);

    // --- properties
    QString XML() const;
    void setXML(const QString& value);
    QString FilterValue() const;
    void setFilterValue(const QString& value);
    QString DisplayColWidth() const;
    void setDisplayColWidth(const QString& value);
    gGeneralProperty_type GeneralProperty() const;
    void setGeneralProperty(const gGeneralProperty_type& value);
    gButtonProperty_type ButtonProperty() const;
    void setButtonProperty(const gButtonProperty_type& value);
    bool ProtectiveEditing() const;
    void setProtectiveEditing(bool on);
    bool canUndo() const;
    bool canRedo() const;
    bool isModified() const;
    // false: the document as it is counts as saved (a host that wrote XML itself);
    // true: it counts as changed.
    void setModified(bool modified);
    qulonglong MaxDocumentBytes() const;
    void setMaxDocumentBytes(qulonglong bytes);
    QString LastSaveError() const;

    // --- for advanced hosts and tests
    Generic_SP_Control& control();
    const Generic_SP_Control& control() const;
    // Twips to pixels on the widget's screen.
    const TwipsScale& scale() const;
    // The binding of a model of the control's form; null for a model without one.
    ComponentBinding* bindingFor(const Component& model) const;
    // The Qt widget shown for a model; null for a model without one.
    QWidget* widgetFor(const Component& model) const;
    // The find bar (hidden until opened).
    QWidget* findBar() const;

    QSize sizeHint() const override;

public Q_SLOTS:
    bool Load(const QString& XMLSource);
    bool LoadXML(const QString& bstrXML);
    void Reposition_Button();
    void RefreshAdvanceScrollbars();
    void MoveNextCell(qint16 KeyAscii);
    void MovePreviousCell(qint16 KeyAscii);
    void MoveNextColumn();
    void MovePreviousColumn();
    bool Undo();
    bool Redo();
    // The next (previous) value that needs correcting (Generic_SP_Control::NextProblem).
    bool NextProblem();
    bool PreviousProblem();
    // Opens the find bar (as Ctrl+F does).
    void showFindBar();

Q_SIGNALS:
    void OKClick();
    void HelpClick();
    void PrintClick(const QString& strXML);
    void CancelClick();
    void AppGridEventHandler(tabulon::xml::Node* ValidationXML);
    // The named settings record ("GeneralProperty", "ButtonProperty") changed.
    void PropertyChanged(const QString& name);
    void canUndoChanged(bool canUndo);
    void canRedoChanged(bool canRedo);
    void modifiedChanged(bool modified);
    // The number of values that need correcting (ProblemCount) changed.
    void ProblemCountChanged(int count);
    // OK ended with "Unable the save the XML file."; reason is LastSaveError.
    void SaveFailed(const QString& reason);

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    class Private;
    std::unique_ptr<Private> d_;
};

}  // namespace tabulon
