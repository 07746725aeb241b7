#include "demo_options.h"

#include <QRegularExpression>

namespace tabulon::demo {

namespace {

// Options that are steps: name, kind and how many values follow.
struct StepOption {
    const char* name;
    DemoStep::Kind kind;
    int values;
};

constexpr StepOption kStepOptions[] = {
    {"--node", DemoStep::Kind::Node, 1}, {"--click", DemoStep::Kind::Click, 2},
    {"--type", DemoStep::Kind::Type, 1}, {"--print", DemoStep::Kind::Print, 0},
    {"--page", DemoStep::Kind::Page, 1}, {"--pdf", DemoStep::Kind::Pdf, 1},
    {"--save", DemoStep::Kind::Save, 1},
};

constexpr const char* kQtOptionsWithValue[] = {
    "platform",    "platformpluginpath", "platformtheme", "plugin",  "qwindowgeometry",
    "qwindowicon", "qwindowtitle",       "session",       "display", "geometry",
    "style",       "stylesheet",         "qmljsdebugger",
};
constexpr const char* kQtFlags[] = {"reverse", "widgetcount", "nograb", "dograb", "sync"};

template <std::size_t N>
bool Among(const QString& name, const char* const (&names)[N]) {
    for (const char* candidate : names) {
        if (name == QLatin1String(candidate)) return true;
    }
    return false;
}

std::optional<int> ReadCount(const QString& text, int minimum) {
    static const QRegularExpression digits(QStringLiteral("^[0-9]{1,9}$"));
    if (!digits.match(text).hasMatch()) return std::nullopt;
    const int value = text.toInt();
    if (value < minimum) return std::nullopt;
    return value;
}

std::optional<QSize> ReadSize(const QString& text) {
    const QStringList parts = text.split(QLatin1Char('x'));
    if (parts.size() != 2) return std::nullopt;
    const auto width = ReadCount(parts[0], 1);
    const auto height = ReadCount(parts[1], 1);
    if (!width || !height) return std::nullopt;
    return QSize(*width, *height);
}

// Checks a step's values; an empty text when they are good.
QString CheckStep(const DemoStep& step) {
    switch (step.kind) {
        case DemoStep::Kind::Click:
            if (!ReadCount(step.args[0], 0) || !ReadCount(step.args[1], 0)) {
                return QStringLiteral("--click takes a row and a column number");
            }
            break;
        case DemoStep::Kind::Page:
            if (step.args[0] != QLatin1String("general") &&
                step.args[0] != QLatin1String("buttons")) {
                return QStringLiteral("--page takes general or buttons");
            }
            break;
        default:
            break;
    }
    return {};
}

}  // namespace

std::optional<DemoOptions> ParseDemoOptions(const QStringList& arguments, QString& error) {
    DemoOptions options;
    error.clear();
    // The value after option i, or an error when there is none.
    const auto valueAfter = [&](qsizetype& i, const QString& option) -> std::optional<QString> {
        if (i + 1 >= arguments.size()) {
            error = option + QStringLiteral(" needs a value");
            return std::nullopt;
        }
        return arguments[++i];
    };

    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString& argument = arguments[i];
        if (argument == QLatin1String("-h") || argument == QLatin1String("--help")) {
            options.help = true;
            continue;
        }
        if (argument == QLatin1String("--print-log")) {
            options.printLog = true;
            continue;
        }
        if (argument == QLatin1String("--screenshot") || argument == QLatin1String("--xml-text") ||
            argument == QLatin1String("--size")) {
            const auto value = valueAfter(i, argument);
            if (!value) return std::nullopt;
            if (argument == QLatin1String("--screenshot")) {
                options.screenshot = *value;
            } else if (argument == QLatin1String("--xml-text")) {
                options.xmlTextFile = *value;
            } else if (const auto size = ReadSize(*value)) {
                options.size = *size;
            } else {
                error = QStringLiteral("--size takes WIDTHxHEIGHT in pixels");
                return std::nullopt;
            }
            continue;
        }
        const StepOption* stepOption = nullptr;
        for (const StepOption& candidate : kStepOptions) {
            if (argument == QLatin1String(candidate.name)) stepOption = &candidate;
        }
        if (stepOption != nullptr) {
            DemoStep step{stepOption->kind, {}};
            for (int v = 0; v < stepOption->values; ++v) {
                const auto value = valueAfter(i, argument);
                if (!value) return std::nullopt;
                step.args.append(*value);
            }
            error = CheckStep(step);
            if (!error.isEmpty()) return std::nullopt;
            options.steps.push_back(step);
            continue;
        }
        if (argument.startsWith(QLatin1Char('-'))) {
            error = QStringLiteral("unknown option ") + argument;
            return std::nullopt;
        }
        if (!options.document.isEmpty()) {
            error = QStringLiteral("only one document can be loaded: ") + argument;
            return std::nullopt;
        }
        options.document = argument;
    }
    return options;
}

QStringList WithoutQtOptions(const QStringList& arguments) {
    QStringList kept;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString& argument = arguments[i];
        QString name = argument;
        if (name.startsWith(QLatin1String("--"))) {
            name.remove(0, 2);
        } else if (name.startsWith(QLatin1Char('-'))) {
            name.remove(0, 1);
        } else {
            kept.append(argument);
            continue;
        }
        const qsizetype equals = name.indexOf(QLatin1Char('='));
        const bool valueAttached = equals >= 0;
        if (valueAttached) name.truncate(equals);
        if (Among(name, kQtOptionsWithValue)) {
            if (!valueAttached) ++i;
        } else if (!Among(name, kQtFlags)) {
            kept.append(argument);
        }
    }
    return kept;
}

QString DemoUsage() {
    return QStringLiteral(
        "usage: tabulon-demo [DOCUMENT] [--xml-text FILE] [STEP ...] [--screenshot FILE]\n"
        "                    [--size WxH] [--print-log] [-platform offscreen]\n"
        "\n"
        "  DOCUMENT            load a document file (Load)\n"
        "  --xml-text FILE     load the text of FILE (LoadXML)\n"
        "  --screenshot FILE   after the steps, render the window (or the property page\n"
        "                      opened last) to FILE (PNG) and exit\n"
        "  --size WxH          window size in pixels (default 1024x700)\n"
        "  --print-log         copy every line of the log pane to standard output\n"
        "\n"
        "steps, run in the order given:\n"
        "  --node KEY          click the tree node KEY\n"
        "  --click R C         click the grid cell in row R, column C\n"
        "  --type TEXT         type TEXT into the widget that has the focus\n"
        "  --print             click View/Print\n"
        "  --page general|buttons  open that property page\n"
        "  --pdf FILE          export the last View/Print report as PDF\n"
        "  --save FILE         write the document (the XML property) to FILE\n");
}

}  // namespace tabulon::demo
