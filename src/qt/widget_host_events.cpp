#include "qt/widget_host_events.h"

#include <QGuiApplication>

#include "qt/qt_text.h"
#include "qt/spreadsheet_widget.h"

namespace tabulon {

WidgetHostEvents::~WidgetHostEvents() {
    for (; waitCursors_ > 0; --waitCursors_)
        QGuiApplication::restoreOverrideCursor();
}

void WidgetHostEvents::OKClick() {
    beforeEvent();
    Q_EMIT widget_.OKClick();
}

void WidgetHostEvents::HelpClick() {
    beforeEvent();
    Q_EMIT widget_.HelpClick();
}

void WidgetHostEvents::PrintClick(const std::string& strXML) {
    beforeEvent();
    Q_EMIT widget_.PrintClick(ToQString(strXML));
}

void WidgetHostEvents::CancelClick() {
    beforeEvent();
    Q_EMIT widget_.CancelClick();
}

void WidgetHostEvents::AppGridEventHandler(xml::Node& ValidationXML) {
    beforeEvent();
    Q_EMIT widget_.AppGridEventHandler(&ValidationXML);
}

void WidgetHostEvents::SaveFailed(const std::string& reason) {
    beforeEvent();
    Q_EMIT widget_.SaveFailed(ToQString(reason));
}

void WidgetHostEvents::PropertyChanged(std::string_view name) {
    beforeEvent();
    Q_EMIT widget_.PropertyChanged(ToQString(name));
}

void WidgetHostEvents::SetWaitCursor(bool busy) {
    if (busy) {
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
        ++waitCursors_;
    } else if (waitCursors_ > 0) {
        QGuiApplication::restoreOverrideCursor();
        --waitCursors_;
    }
}

}  // namespace tabulon
