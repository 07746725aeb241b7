#include "report_table.h"

#include <QBrush>
#include <QColor>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextTable>
#include <algorithm>

namespace tabulon::demo {

namespace {

enum class Section { None, ColumnHeader, RowHeader, GridData };

// A section's opening and closing line.
struct SectionTags {
    Section section;
    QLatin1String open;
    QLatin1String close;
};

constexpr SectionTags kSections[] = {
    {Section::ColumnHeader, QLatin1String("<Column_Header>"), QLatin1String("</Column_Header>")},
    {Section::RowHeader, QLatin1String("<Row_Header>"), QLatin1String("</Row_Header>")},
    {Section::GridData, QLatin1String("<Grid_Data>"), QLatin1String("</Grid_Data>")},
};

// The element that holds the texts of a section.
QLatin1String ValueTag(Section section) {
    switch (section) {
        case Section::ColumnHeader:
            return QLatin1String("ColumnCaption");
        case Section::RowHeader:
            return QLatin1String("RowCaption");
        case Section::GridData:
            return QLatin1String("CellValue");
        case Section::None:
            break;
    }
    return QLatin1String();
}

class ReportReader {
public:
    explicit ReportReader(const QString& report) : lines_(report.split(QStringLiteral("\r\n"))) {}

    ReportTable read() {
        for (next_ = 0; next_ < lines_.size();)
            readLine(lines_[next_++]);
        return std::move(table_);
    }

private:
    void readLine(const QString& line) {
        for (const SectionTags& tags : kSections) {
            if (line == tags.open) {
                section_ = tags.section;
                return;
            }
            if (line == tags.close) {
                section_ = Section::None;
                return;
            }
        }
        if (section_ == Section::GridData && line == QLatin1String("<Column_Value>")) {
            table_.columns.emplace_back();
            inColumn_ = true;
            return;
        }
        if (line == QLatin1String("</Column_Value>")) {
            inColumn_ = false;
            return;
        }
        const QLatin1String tag = ValueTag(section_);
        if (tag.isEmpty()) return;
        const QString open = QLatin1Char('<') + tag + QLatin1Char('>');
        if (!line.startsWith(open)) return;
        const QString text = readText(line.mid(open.size()), tag);
        switch (section_) {
            case Section::ColumnHeader:
                table_.columnCaptions.append(text);
                break;
            case Section::RowHeader:
                table_.rowCaptions.append(text);
                break;
            case Section::GridData:
                if (inColumn_) table_.columns.back().append(text);
                break;
            case Section::None:
                break;
        }
    }

    // The text after an opening tag, up to its closing tag (further lines included
    // when it does not close on this one).
    QString readText(QString text, QLatin1String tag) {
        const QString close = QStringLiteral("</") + tag + QLatin1Char('>');
        while (!text.endsWith(close) && next_ < lines_.size())
            text += QLatin1Char('\n') + lines_[next_++];
        if (text.endsWith(close)) text.chop(close.size());
        return text;
    }

    QStringList lines_;
    qsizetype next_ = 0;
    Section section_ = Section::None;
    bool inColumn_ = false;
    ReportTable table_;
};

}  // namespace

int ReportTable::rowCount() const {
    qsizetype rows = std::max<qsizetype>(rowCaptions.size() - 1, 0);
    for (const QStringList& column : columns)
        rows = std::max(rows, column.size());
    return static_cast<int>(rows);
}

int ReportTable::columnCount() const {
    return static_cast<int>(
        std::max(columnCaptions.size(), static_cast<qsizetype>(columns.size())));
}

QString ReportTable::cell(int row, int column) const {
    if (row < 0 || column < 0 || column >= static_cast<int>(columns.size())) return {};
    const QStringList& cells = columns[static_cast<std::size_t>(column)];
    return row < cells.size() ? cells[row] : QString();
}

ReportTable ParseReport(const QString& report) {
    return ReportReader(report).read();
}

std::unique_ptr<QTextDocument> ReportDocument(const ReportTable& table, const QString& title) {
    auto document = std::make_unique<QTextDocument>();
    QTextCursor cursor(document.get());
    if (!title.isEmpty()) {
        QTextCharFormat heading;
        heading.setFontPointSize(14);
        heading.setFontWeight(QFont::Bold);
        cursor.insertText(title, heading);
        cursor.insertBlock();
    }

    QTextTableFormat format;
    format.setBorder(1);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setBorderBrush(QBrush(QColor(0x80, 0x80, 0x80)));
    format.setCellSpacing(0);
    format.setCellPadding(3);
    format.setHeaderRowCount(1);
    QTextTable* grid = cursor.insertTable(table.rowCount() + 1, table.columnCount() + 1, format);

    QTextCharFormat caption;
    caption.setFontWeight(QFont::Bold);
    QTextCharFormat plain;
    const QBrush captionBack(QColor(0xE0, 0xE0, 0xE0));
    const auto put = [&](int row, int column, const QString& text, bool isCaption) {
        QTextTableCell cell = grid->cellAt(row, column);
        if (isCaption) {
            QTextCharFormat back = cell.format();
            back.setBackground(captionBack);
            cell.setFormat(back);
        }
        cell.firstCursorPosition().insertText(text, isCaption ? caption : plain);
    };

    put(0, 0, table.rowCaptions.value(0), true);
    for (int c = 0; c < table.columnCount(); ++c)
        put(0, c + 1, table.columnCaptions.value(c), true);
    for (int r = 0; r < table.rowCount(); ++r) {
        put(r + 1, 0, table.rowCaptions.value(r + 1), true);
        for (int c = 0; c < table.columnCount(); ++c)
            put(r + 1, c + 1, table.cell(r, c), false);
    }
    return document;
}

}  // namespace tabulon::demo
