#include "xml_text_dialog.h"

#include <QDialogButtonBox>
#include <QFile>
#include <QFileDialog>
#include <QFontDatabase>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace tabulon::demo {

XmlTextDialog::XmlTextDialog(QWidget* parent) : QDialog(parent), editor_(new QPlainTextEdit(this)) {
    setWindowTitle(tr("Open from text"));
    editor_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    editor_->setLineWrapMode(QPlainTextEdit::NoWrap);
    editor_->setPlaceholderText(tr("Paste a document here, or read one from a file."));

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setText(tr("Load"));
    QPushButton* read = buttons->addButton(tr("Read file..."), QDialogButtonBox::ActionRole);
    connect(read, &QPushButton::clicked, this, &XmlTextDialog::readFile);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(editor_);
    layout->addWidget(buttons);
    resize(760, 560);
}

QString XmlTextDialog::text() const {
    return editor_->toPlainText();
}

void XmlTextDialog::setText(const QString& text) {
    editor_->setPlainText(text);
}

void XmlTextDialog::readFile() {
    const QString path = QFileDialog::getOpenFileName(this, tr("Read file"), QString(),
                                                      tr("XML documents (*.xml);;All files (*)"));
    if (path.isEmpty()) return;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        QMessageBox::critical(this, windowTitle(), tr("Could not read %1.").arg(path));
        return;
    }
    setText(QString::fromUtf8(file.readAll()));
}

}  // namespace tabulon::demo
