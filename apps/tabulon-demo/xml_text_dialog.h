// XmlTextDialog: File > Open from text. The user pastes or types a document's text,
// or reads a file's text into the editor ("Read file..."), and may edit it before the
// demo hands it to the control's LoadXML.
#pragma once

#include <QDialog>
#include <QString>

class QPlainTextEdit;

namespace tabulon::demo {

class XmlTextDialog : public QDialog {
    Q_OBJECT

public:
    explicit XmlTextDialog(QWidget* parent = nullptr);

    QString text() const;
    void setText(const QString& text);

private:
    void readFile();

    QPlainTextEdit* editor_;
};

}  // namespace tabulon::demo
