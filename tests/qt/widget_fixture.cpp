#include "widget_fixture.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QKeySequence>
#include <QTest>
#include <QTreeView>
#include <cstdio>
#include <filesystem>

#include "control/control_access.h"
#include "qt/bindings/tree_binding.h"
#include "qt/qt_text.h"

namespace tabulon::testing {

WidgetFixture::WidgetFixture() {
    // The samples name their pictures relative to the repository root.
    QDir::setCurrent(QString::fromUtf8(TABULON_SOURCE_DIR));
    widget_ = std::make_unique<SpreadsheetWidget>(
        nullptr, nullptr, [this](MessageIcon icon, const QString& text) {
            messages.push_back(std::string(MessageIconName(icon)) + ": " + ToStdString(text));
        });
    SpreadsheetWidget* w = widget_.get();
    QObject::connect(w, &SpreadsheetWidget::OKClick, [this] { events.emplace_back("OKClick"); });
    QObject::connect(w, &SpreadsheetWidget::CancelClick,
                     [this] { events.emplace_back("CancelClick"); });
    QObject::connect(w, &SpreadsheetWidget::HelpClick,
                     [this] { events.emplace_back("HelpClick"); });
    QObject::connect(w, &SpreadsheetWidget::PrintClick, [this](const QString& strXML) {
        events.push_back("PrintClick " + ToStdString(strXML));
    });
    QObject::connect(w, &SpreadsheetWidget::AppGridEventHandler, [this](xml::Node* element) {
        events.push_back("AppGridEventHandler " + element->serialize());
    });
    QObject::connect(w, &SpreadsheetWidget::PropertyChanged, [this](const QString& name) {
        events.push_back("changed " + ToStdString(name));
    });
    widget_->resize(kWidthPixels, kHeightPixels);
    widget_->show();
    widget_->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(widget_.get()));
    ProcessEvents();
}

std::string WidgetFixture::SampleCopy(const std::string& name) {
    if (!tempDir_) tempDir_.emplace();
    return tempDir_->write(
        name, ReadFileBytes(std::filesystem::path(TABULON_SOURCE_DIR) / "samples" / name));
}

bool WidgetFixture::Load(const std::string& path) {
    return widget_->Load(QString::fromStdString(path));
}

void WidgetFixture::UseScrollBars() {
    gGeneralProperty_type general = widget_->GeneralProperty();
    general.intScrollBars = 1;
    widget_->setGeneralProperty(general);
}

void WidgetFixture::ProcessEvents() {
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
}

GridView& WidgetFixture::view() {
    return *static_cast<GridView*>(widget_->widgetFor(form().msgGridView));
}

QTreeView& WidgetFixture::treeView() {
    return *static_cast<QTreeView*>(widget_->widgetFor(form().treTreeView));
}

QModelIndex WidgetFixture::TreeIndex(const std::string& key) {
    const int node = form().treTreeView.indexOf(key);
    const QModelIndex index =
        static_cast<TreeBinding*>(widget_->bindingFor(form().treTreeView))->indexFor(node);
    if (!index.isValid()) ADD_FAILURE() << "no tree row for " << key;
    return index;
}

QPoint WidgetFixture::CellCentre(int row, int col) {
    const QRect rect = view().cellRect(row, col);
    EXPECT_FALSE(rect.isEmpty()) << "cell " << row << ", " << col << " is not in view";
    return rect.center();
}

std::string WidgetFixture::ClickCell(int row, int col) {
    QTest::mouseClick(&view(), Qt::LeftButton, Qt::NoModifier, CellCentre(row, col));
    ProcessEvents();
    return "click " + std::to_string(row) + " " + std::to_string(col) + "\n";
}

std::string WidgetFixture::ClickNode(const std::string& key) {
    const QModelIndex index = TreeIndex(key);
    if (index.isValid()) {
        QTreeView& tree = treeView();
        tree.scrollTo(index);
        const QPoint centre = tree.visualRect(index).center();
        QTest::mouseClick(tree.viewport(), Qt::LeftButton, Qt::NoModifier, centre);
        ProcessEvents();
    }
    return "node " + key + "\n";
}

void WidgetFixture::TypeText(const QString& text) {
    for (const QChar c : text) {
        QWidget* target = QApplication::focusWidget();
        ASSERT_NE(target, nullptr) << "no widget has the focus";
        QTest::keyClicks(target, QString(c));
        ProcessEvents();
    }
}

void WidgetFixture::KeyClick(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QWidget* target = QApplication::focusWidget();
    ASSERT_NE(target, nullptr) << "no widget has the focus";
    QTest::keyClick(target, key, modifiers);
    ProcessEvents();
}

std::string WidgetFixture::TypeStep(const std::string& text) {
    EXPECT_EQ(text.find_first_of("\"\\"), std::string::npos) << "a step cannot quote " << text;
    TypeText(QString::fromStdString(text));
    return "type \"" + text + "\"\n";
}

std::string WidgetFixture::KeyStep(const std::string& name, const std::string& modifiers) {
    // The session's names are Qt's portable ones, but its Enter is the main Return key.
    QString portable = QString::fromStdString(name == "Enter" ? "Return" : name);
    for (const QString& modifier :
         QString::fromStdString(modifiers).split(u'+', Qt::SkipEmptyParts))
        portable.prepend(modifier.left(1).toUpper() + modifier.mid(1) + u'+');
    const QKeySequence sequence = QKeySequence::fromString(portable, QKeySequence::PortableText);
    EXPECT_EQ(sequence.count(), 1) << "no Qt key for " << name << " " << modifiers;
    const Qt::KeyboardModifiers qtModifiers = sequence[0].keyboardModifiers();
    const Qt::Key key = sequence[0].key();
    // Tab with shift is Backtab, as Qt sends it.
    KeyClick(key == Qt::Key_Tab && qtModifiers.testFlag(Qt::ShiftModifier) ? Qt::Key_Backtab : key,
             qtModifiers);
    return "key " + name + (modifiers.empty() ? "" : " " + modifiers) + "\n";
}

std::string WidgetFixture::ButtonStep(const std::string& name) {
    Form& f = form();
    QWidget* button = widget_->widgetFor(name == "OK"       ? f.cmdOK
                                         : name == "Cancel" ? f.cmdCancel
                                         : name == "Help"   ? f.cmdHelp
                                                            : f.cmdPrint);
    QTest::mouseClick(button, Qt::LeftButton);
    ProcessEvents();
    return "button " + name + "\n";
}

void WidgetFixture::PickFromPopup(QComboBox* combo, const QString& item) {
    const int index = combo->findText(item);
    ASSERT_GE(index, 0) << "no item " << item.toStdString();
    QTest::mouseClick(combo, Qt::LeftButton);
    ProcessEvents();
    QAbstractItemView* view = combo->view();
    ASSERT_TRUE(view->isVisible()) << "the drop-down did not open";
    // The pointer moves onto the item and Enter chooses it (a click right after the
    // drop-down opened would be taken for the end of the opening press).
    const QModelIndex target = view->model()->index(index, 0);
    QTest::mouseMove(view->viewport(), view->visualRect(target).center());
    ProcessEvents();
    if (view->currentIndex() != target) view->setCurrentIndex(target);
    QTest::keyClick(view, Qt::Key_Return);
    ProcessEvents();
}

SessionRun WidgetFixture::RunSteps(const std::string& steps) const {
    const Component& self = FormOf(widget_->control()).control;
    return RunSession("new " + std::to_string(self.width()) + " " + std::to_string(self.height()) +
                      "\nshow\n" + steps);
}

std::string WidgetFixture::Script(std::initializer_list<std::string> steps) {
    std::string script;
    for (const std::string& step : steps)
        script += step;
    return script;
}

namespace {

std::string Hex(Rgb rgb) {
    char text[8];
    std::snprintf(text, sizeof text, "#%06x", static_cast<unsigned>(rgb));
    return text;
}

}  // namespace

int Int(const JsonValue& value) {
    return static_cast<int>(value.number);
}

void ExpectGridMatches(const FlexGrid& grid, const JsonValue& dump) {
    ASSERT_TRUE(dump.has("cells")) << "no grid dump";
    const std::pair<const char*, int> fields[] = {
        {"rows", grid.rows()},     {"cols", grid.cols()},      {"row", grid.row()},
        {"col", grid.col()},       {"rowSel", grid.rowSel()},  {"colSel", grid.colSel()},
        {"topRow", grid.topRow()}, {"leftCol", grid.leftCol()}};
    for (const auto& [name, value] : fields)
        EXPECT_EQ(value, Int(dump[name])) << name;
    for (int c = 0; c < grid.cols(); ++c) {
        EXPECT_EQ(grid.colWidth(c), Int(dump["colWidths"][static_cast<std::size_t>(c)])) << c;
        for (int r = 0; r < grid.rows(); ++r) {
            const JsonValue& cell =
                dump["cells"][static_cast<std::size_t>(r)][static_cast<std::size_t>(c)];
            EXPECT_EQ(grid.textMatrix(r, c), cell["text"].text) << r << ", " << c;
            EXPECT_EQ(Hex(grid.cellBackColor(r, c)), cell["back"].text) << r << ", " << c;
        }
    }
}

void WidgetFixture::ExpectSameOutcome(const SessionRun& run) {
    ASSERT_EQ(run.status, 0) << run.err;
    ExpectGridMatches(form().msgGridView, LastDump(run, "grid"));
    const std::vector<JsonValue> results = Results(run);
    // A multi-line difference is printed as a diff.
    EXPECT_EQ(widget().XML().toStdString(), results.empty() ? "<no result>" : results.back().text);
    EXPECT_EQ(events, SessionEvents(run));
    EXPECT_EQ(messages, SessionMessages(run));
}

std::vector<std::string> SessionEvents(const SessionRun& run) {
    std::vector<std::string> found;
    for (const JsonValue& line : run.lines) {
        if (line.has("event")) {
            // PrintClick carries strXML, AppGridEventHandler xml.
            const bool text = line.has("strXML") || line.has("xml");
            found.push_back(line["event"].text +
                            (text ? " " + line["strXML"].text + line["xml"].text : ""));
        } else if (line.has("changed")) {
            found.push_back("changed " + line["changed"].text);
        }
    }
    return found;
}

std::vector<std::string> SessionMessages(const SessionRun& run) {
    std::vector<std::string> found;
    for (const JsonValue& line : run.lines) {
        if (line.has("msg")) found.push_back(line["msg"].text + ": " + line["text"].text);
    }
    return found;
}

JsonValue LastDump(const SessionRun& run, const std::string& what) {
    JsonValue last;
    for (const JsonValue& line : run.lines) {
        if (line.has("dump") && line["dump"].text == what) last = line;
    }
    return last;
}

std::vector<JsonValue> Results(const SessionRun& run) {
    std::vector<JsonValue> found;
    for (const JsonValue& line : run.lines) {
        if (line.has("result")) found.push_back(line["result"]);
    }
    return found;
}

}  // namespace tabulon::testing
