#include "view/problem_reasons.h"

#include <exception>

#include "support/number_format.h"
#include "support/numeric.h"
#include "support/text.h"
#include "unitinput/unit_catalogue.h"
#include "unitinput/unit_errors.h"
#include "units/conversion_table.h"
#include "view/control_core.h"
#include "view/unit_codes.h"

namespace tabulon {

namespace {

bool ReadsAsNumber(std::string_view text) {
    return NumericPrefixLength(text) > 0;
}

// A limit as the cell would show it, with its unit label when it has one.
std::string LimitText(double english, const RangeFinding& finding, const UnitRegistrar& registrar,
                      bool metric) {
    double shown = english;
    std::string label;
    try {
        if (metric) {
            shown =
                AsWrittenText(registrar.Convert(english, finding.code, UnitRegistrar::kToMetric));
        }
        label = registrar.UnitName(finding.code,
                                   metric ? UnitRegistrar::kToMetric : UnitRegistrar::kToEnglish);
    } catch (const std::exception&) {
        shown = english;  // a unit this registrar cannot convert: the stored limit
        label.clear();
    }
    std::string text = Trim(FormatNumber(shown, finding.format));
    if (!label.empty()) text += " " + label;
    return text;
}

std::string Sentence(const RangeFinding& finding, const UnitRegistrar& registrar, bool metric) {
    const auto limit = [&](double english) {
        return LimitText(english, finding, registrar, metric);
    };
    switch (finding.verdict) {
        case RangeVerdict::Within:
            return {};
        case RangeVerdict::NoValueFits:
            return "No value fits: the minimum of " + limit(finding.minimum) +
                   " is above the maximum of " + limit(finding.maximum);
        case RangeVerdict::BelowMinimum:
            if (!finding.readsAsNumber) return std::string(kNotANumber);
            return "Below the minimum of " + limit(finding.minimum);
        case RangeVerdict::AboveMaximum:
            if (!finding.readsAsNumber) return std::string(kNotANumber);
            return "Above the maximum of " + limit(finding.maximum);
    }
    return {};
}

// The code of a UnitNum row's unit, as the number editor finds it: a built-in code, a
// custom unit registered with registrar, or 0 when neither.
int UnitNumCode(ControlCore& core, UnitRegistrar& registrar, const std::string& unit) {
    int code = 0;
    IgnoringFailure([&] { code = ConversionIndex(unit); });
    if (code < kFirstCustomUnitCode) return code;
    const int registered = RegisterCustomUnitOrIgnore(core, registrar, unit);
    return registered == -1 ? 0 : registered;
}

std::string UnitNumProblem(ControlCore& core, const RowInfo& row, std::string_view stored) {
    UnitRegistrar registrar;
    RangeFinding finding;
    finding.code = UnitNumCode(core, registrar, row.Unit);
    finding.minimum = ReadNumber(row.MinVal);
    finding.maximum = ReadNumber(row.MaxVal);
    finding.verdict = JudgeRange(ReadNumber(stored), finding.minimum, finding.maximum);
    finding.readsAsNumber = ReadsAsNumber(stored);
    finding.format = row.Format;
    return Sentence(finding, registrar, MetricDocument(core));
}

// A box of the row's units in English, as the unit editor would fill it, judges the
// stored number (English) in the unit the value names.
std::string UnitDropProblem(ControlCore& core, const RowInfo& row, std::string_view stored) {
    const std::size_t open = stored.find('(');
    if (open == std::string_view::npos) return {};
    const std::string unit = WithoutLastCharacter(Trim(stored.substr(open + 1)));
    const auto registrar = std::make_shared<UnitRegistrar>();
    UnitDropBox box("unitDropJudge");
    box.SetRegistrar(registrar);
    FillUnitDropList(core, *registrar, box, row);
    if (box.Units().empty()) return {};
    try {
        box.SelectUnitByText(unit);
    } catch (const UnitRejectedFailure&) {
        return std::string(kUnitNotListed);
    }
    box.SetNumberText(std::string(stored.substr(0, open)));
    return Sentence(UnitDropFinding(box), *registrar, MetricDocument(core));
}

}  // namespace

RangeFinding UnitNumFinding(const UnitNumBox& box, std::string_view typed) {
    RangeFinding finding;
    finding.verdict = box.Judge();
    finding.readsAsNumber = ReadsAsNumber(typed);
    finding.minimum = box.AppliedMinimum();
    finding.maximum = box.AppliedMaximum();
    finding.code = box.UnitCode();
    finding.format = box.DisplayFormat();
    return finding;
}

RangeFinding UnitDropFinding(const UnitDropBox& box) {
    RangeFinding finding;
    finding.verdict = box.Judge();
    finding.readsAsNumber = ReadsAsNumber(box.NumberText());
    finding.code = box.SelectedUnitIndex();
    for (const UnitDropBox::Unit& unit : box.Units()) {
        if (unit.code != finding.code) continue;
        finding.minimum = unit.minimum;
        finding.maximum = unit.maximum;
        finding.format = unit.format;
    }
    return finding;
}

std::string DescribeFinding(const RangeFinding& finding, const UnitRegistrar* registrar,
                            bool metric) {
    const UnitRegistrar builtIn;
    try {
        return Sentence(finding, registrar != nullptr ? *registrar : builtIn, metric);
    } catch (const std::exception&) {
        // Formatting cannot fail for finite limits; say at least which side failed.
        return finding.verdict == RangeVerdict::Within ? std::string()
                                                       : "Outside the allowed range";
    }
}

std::string DocumentValueProblem(ControlCore& core, const RowInfo& row, std::string_view stored) {
    std::string problem;
    try {
        if (row.ControlType == EditorKind::UnitNum) problem = UnitNumProblem(core, row, stored);
        if (row.ControlType == EditorKind::UnitDrop) problem = UnitDropProblem(core, row, stored);
    } catch (const std::exception&) {
        problem.clear();  // the rules cannot tell: the document's mark is the reason
    }
    return problem.empty() ? std::string(kMarkedInDocument) : problem;
}

}  // namespace tabulon
