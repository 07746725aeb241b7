#include "qt/qt_clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include "qt/qt_text.h"

namespace tabulon {

void QtClipboard::Put(const ClipboardContent& content) {
    auto* data = new QMimeData;
    data->setText(ToQString(content.text));
    if (!content.html.empty()) data->setHtml(ToQString(content.html));
    QGuiApplication::clipboard()->setMimeData(data);
}

std::string QtClipboard::Text() const {
    return ToStdString(QGuiApplication::clipboard()->text());
}

}  // namespace tabulon
