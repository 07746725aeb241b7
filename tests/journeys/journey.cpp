#include "journeys/journey.h"

#include <QApplication>
#include <QClipboard>
#include <QStyle>
#include <QTest>
#include <QWheelEvent>
#include <algorithm>
#include <array>
#include <cctype>
#include <sstream>
#include <utility>

#include "common/files.h"
#include "qt/bindings/scroll_bar_binding.h"
#include "session/script_lexer.h"

namespace tabulon::testing {

namespace {

using cli::session::SplitScriptLine;
using cli::session::Word;

constexpr int kWheelNotch = 120;
constexpr int kDragSteps = 8;

const std::array<std::pair<std::string_view, Qt::Key>, 12> kNamedKeys = {{
    {"Tab", Qt::Key_Tab},
    {"Enter", Qt::Key_Return},
    {"Space", Qt::Key_Space},
    {"Escape", Qt::Key_Escape},
    {"Backspace", Qt::Key_Backspace},
    {"Delete", Qt::Key_Delete},
    {"Home", Qt::Key_Home},
    {"End", Qt::Key_End},
    {"Left", Qt::Key_Left},
    {"Right", Qt::Key_Right},
    {"Up", Qt::Key_Up},
    {"Down", Qt::Key_Down},
}};

// The Qt key of a session key name: the named keys, F1..F12, or one letter or digit.
Qt::Key QtKey(const std::string& name) {
    for (const auto& [keyName, key] : kNamedKeys) {
        if (keyName == name) return key;
    }
    if (name.size() >= 2 && name[0] == 'F') {
        return static_cast<Qt::Key>(Qt::Key_F1 + std::stoi(name.substr(1)) - 1);
    }
    if (name.size() == 1 && std::isalnum(static_cast<unsigned char>(name[0]))) {
        return static_cast<Qt::Key>(std::toupper(static_cast<unsigned char>(name[0])));
    }
    ADD_FAILURE() << "the journey has no key \"" << name << "\"";
    return Qt::Key_unknown;
}

Qt::KeyboardModifiers Modifiers(const std::vector<Word>& words) {
    Qt::KeyboardModifiers modifiers;
    for (std::size_t i = 2; i < words.size(); ++i) {
        std::istringstream parts(words[i].text);
        for (std::string part; std::getline(parts, part, '+');) {
            if (part == "ctrl") modifiers |= Qt::ControlModifier;
            if (part == "shift") modifiers |= Qt::ShiftModifier;
            if (part == "alt") modifiers |= Qt::AltModifier;
        }
    }
    return modifiers;
}

}  // namespace

std::string JourneyFixture::ScriptFile(const std::string& name) {
    return ReadFileBytes(std::filesystem::path(TABULON_SOURCE_DIR) / "tests" / "journeys" / name);
}

void JourneyFixture::Start(const std::string& documentText) {
    widgetPath_ = WriteTempFile("widget.xml", documentText);
    sessionPath_ = WriteTempFile("session.xml", documentText);
    ASSERT_TRUE(Load(widgetPath_));
}

std::string JourneyFixture::SavedDocument() const {
    return ReadFileBytes(widgetPath_);
}

void JourneyFixture::Play(const std::string& script) {
    std::istringstream lines(script);
    for (std::string line; std::getline(lines, line);) {
        SCOPED_TRACE(line);
        Run(line);
        if (::testing::Test::HasFatalFailure()) return;
    }
}

void JourneyFixture::Run(const std::string& line) {
    const std::vector<Word> words = SplitScriptLine(line).words;
    if (words.empty()) return;
    const std::string& command = words[0].text;
    const auto number = [&words](std::size_t i) { return std::stoi(words.at(i).text); };
    if (command == "click") {
        ClickCell(number(1), number(2));
    } else if (command == "node") {
        ClickNode(words.at(1).text);
    } else if (command == "type") {
        TypeText(QString::fromStdString(words.at(1).text));
    } else if (command == "key") {
        Qt::Key key = QtKey(words.at(1).text);
        const Qt::KeyboardModifiers modifiers = Modifiers(words);
        if (key == Qt::Key_Tab && modifiers.testFlag(Qt::ShiftModifier)) key = Qt::Key_Backtab;
        KeyClick(key, modifiers);
    } else if (command == "paste") {
        QGuiApplication::clipboard()->setText(QString::fromStdString(words.at(1).text));
        KeyClick(Qt::Key_V, Qt::ControlModifier);
    } else if (command == "button") {
        Form& f = form();
        const std::string& name = words.at(1).text;
        ClickButton(name == "OK" ? f.cmdOK : name == "Cancel" ? f.cmdCancel : f.cmdPrint);
    } else if (command == "hscroll" || command == "vscroll") {
        QScrollBar* bar = Bar(command == "hscroll");
        const std::string& how = words.at(1).text;
        if (how == "+1" || how == "-1") {
            ClickBar(bar, how == "+1" ? QStyle::SC_ScrollBarAddLine : QStyle::SC_ScrollBarSubLine);
        } else {
            const bool after = std::stoi(how.substr(1)) > bar->value();
            ClickBar(bar, after ? QStyle::SC_ScrollBarAddPage : QStyle::SC_ScrollBarSubPage);
        }
    } else if (command == "hdrag" || command == "vdrag") {
        DragThumb(Bar(command == "hdrag"), number(1));
    } else if (command == "wheel") {
        Wheel(number(1), words.size() > 2 ? number(2) : 0);
    } else {
        ADD_FAILURE() << "a journey cannot play \"" << command << "\"";
    }
}

QScrollBar* JourneyFixture::Bar(bool horizontal) {
    const Component& owner = horizontal ? static_cast<Component&>(form().hscGrid) : form().vscGrid;
    auto* binding = dynamic_cast<ScrollBarBinding*>(widget().bindingFor(owner));
    EXPECT_NE(binding, nullptr);
    QScrollBar* bar = binding->scrollBar();
    EXPECT_TRUE(bar->isVisible() && bar->isEnabled()) << owner.name() << " cannot be operated";
    return bar;
}

void JourneyFixture::ClickBar(QScrollBar* bar, int part) {
    const QRect rect = ScrollBarPart(bar, QStyle::SubControl(part));
    ASSERT_FALSE(rect.isEmpty()) << "the bar has no such part now";
    QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier, rect.center());
    ProcessEvents();
}

// The thumb is taken at its centre and moved in steps to where value lies on the bar
// as it is at each step (the range may grow while the grid moves), then let go.
void JourneyFixture::DragThumb(QScrollBar* bar, int value) {
    const bool horizontal = bar->orientation() == Qt::Horizontal;
    const auto along = [horizontal](const QPoint& p) { return horizontal ? p.x() : p.y(); };
    const QRect thumb = ScrollBarPart(bar, QStyle::SC_ScrollBarSlider);
    const QPoint start = thumb.center();
    const int grip = along(start) - along(thumb.topLeft());
    const auto target = [&] {
        const QRect groove = ScrollBarPart(bar, QStyle::SC_ScrollBarGroove);
        const QRect slider = ScrollBarPart(bar, QStyle::SC_ScrollBarSlider);
        const int length = horizontal ? slider.width() : slider.height();
        const int span = (horizontal ? groove.width() : groove.height()) - length;
        const int to = std::clamp(value, bar->minimum(), bar->maximum());
        const int at = along(groove.topLeft()) + grip +
                       QStyle::sliderPositionFromValue(bar->minimum(), bar->maximum(), to, span);
        return horizontal ? QPoint(at, start.y()) : QPoint(start.x(), at);
    };
    QTest::mousePress(bar, Qt::LeftButton, Qt::NoModifier, start);
    ProcessEvents();
    for (int step = 1; step <= kDragSteps; ++step) {
        const QPoint end = target();
        QTest::mouseMove(bar, start + (end - start) * step / kDragSteps);
        ProcessEvents();
    }
    QTest::mouseMove(bar, target());
    QTest::mouseRelease(bar, Qt::LeftButton, Qt::NoModifier, target());
    ProcessEvents();
}

// The wheel goes to whatever lies over the grid's centre: a cell or an editor.
void JourneyFixture::Wheel(int rows, int cols) {
    const int lines = QApplication::wheelScrollLines();
    ASSERT_EQ(rows % lines, 0) << "a wheel notch scrolls " << lines << " rows";
    QWidget* grid = widget().widgetFor(form().msgGridView);
    const QPoint centre = grid->geometry().center();
    QWidget* target = widget().childAt(centre);
    if (target == nullptr) target = grid;
    const QPoint local = target->mapFrom(&widget(), centre);
    QWheelEvent wheel(local, target->mapToGlobal(local), QPoint(),
                      QPoint(-cols * kWheelNotch, -rows / lines * kWheelNotch), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(target, &wheel);
    ProcessEvents();
}

void JourneyFixture::Finish(const std::string& script, const std::string& hostSetup) {
    const SessionRun run =
        RunSteps("load \"" + sessionPath_ + "\"\n" + hostSetup + script + "dump grid\n");
    ASSERT_EQ(run.status, 0) << run.err;
    ExpectGridMatches(form().msgGridView, LastDump(run, "grid"));
    EXPECT_EQ(events, SessionEvents(run));
    EXPECT_EQ(messages, SessionMessages(run));
    ExpectSameDocument(SavedDocument(), ReadFileBytes(sessionPath_));
}

}  // namespace tabulon::testing
