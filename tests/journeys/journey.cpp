#include "journeys/journey.h"

#include <QApplication>
#include <QClipboard>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QTest>
#include <QWheelEvent>
#include <algorithm>
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

// Where one part of a scroll bar lies as its style lays the bar out now.
QRect ScrollBarPart(const QScrollBar* bar, QStyle::SubControl part) {
    QStyleOptionSlider option;
    option.initFrom(bar);
    option.orientation = bar->orientation();
    option.minimum = bar->minimum();
    option.maximum = bar->maximum();
    option.sliderPosition = bar->sliderPosition();
    option.sliderValue = bar->value();
    option.pageStep = bar->pageStep();
    option.singleStep = bar->singleStep();
    option.upsideDown = bar->invertedAppearance();
    return bar->style()->subControlRect(QStyle::CC_ScrollBar, &option, part, bar);
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
        std::string modifiers;
        for (std::size_t i = 2; i < words.size(); ++i)
            modifiers += (i > 2 ? "+" : "") + words[i].text;
        KeyStep(words.at(1).text, modifiers);
    } else if (command == "paste") {
        QGuiApplication::clipboard()->setText(QString::fromStdString(words.at(1).text));
        KeyClick(Qt::Key_V, Qt::ControlModifier);
    } else if (command == "button") {
        ButtonStep(words.at(1).text);
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
    EXPECT_EQ(ReadFileBytes(widgetPath_), ReadFileBytes(sessionPath_));
}

}  // namespace tabulon::testing
