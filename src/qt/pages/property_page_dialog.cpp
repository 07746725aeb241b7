#include "qt/pages/property_page_dialog.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QVBoxLayout>
#include <set>
#include <stdexcept>
#include <string>
#include <unordered_map>

#include "propertypages/button_page.h"
#include "propertypages/general_page.h"
#include "qt/pages/page_control_bindings.h"
#include "qt/pages/page_text_binding.h"
#include "qt/qt_text.h"
#include "qt/spreadsheet_widget.h"
#include "support/failure.h"
#include "widgets/numeric_text_box.h"

namespace tabulon {

namespace {

std::unique_ptr<PropertyPage> MakePage(PropertyPageDialog::Kind kind, MessageSink& sink) {
    if (kind == PropertyPageDialog::Kind::General) return std::make_unique<ppGeneral>(sink);
    return std::make_unique<ppButtonProperty>(sink);
}

// The binding that shows one control of a page, in the widget parent.
std::unique_ptr<PageBinding> BindControl(PageBindingHost& host, const PageControl& control,
                                         bool isFrame, QWidget* parent) {
    Component& model = *control.component;
    if (auto* numeric = dynamic_cast<ctlNumericTextBox*>(&model)) {
        return std::make_unique<PageTextBinding>(host, model, numeric->textBox(), parent);
    }
    if (auto* text = dynamic_cast<TextBox*>(&model)) {
        return std::make_unique<PageTextBinding>(host, model, *text, parent);
    }
    if (auto* check = dynamic_cast<CheckBox*>(&model)) {
        return std::make_unique<PageCheckBinding>(host, *check, parent);
    }
    if (auto* combo = dynamic_cast<ComboBox*>(&model)) {
        return std::make_unique<PageComboBinding>(host, *combo, parent);
    }
    if (auto* caption = dynamic_cast<CaptionComponent*>(&model)) {
        const auto kind =
            isFrame ? PageCaptionBinding::Kind::GroupBox : PageCaptionBinding::Kind::Text;
        return std::make_unique<PageCaptionBinding>(host, *caption, kind, parent);
    }
    throw std::logic_error("PropertyPageDialog: no widget for " + model.name());
}

}  // namespace

PropertyPageDialog::PropertyPageDialog(Kind kind, SpreadsheetWidget& control, QWidget* parent,
                                       MessageHandler messages)
    : QDialog(parent),
      sink_(this),
      page_(MakePage(kind, sink_)),
      control_(&control),
      scale_(logicalDpiX(), logicalDpiY()) {
    sink_.setHandler(std::move(messages));
    setWindowTitle(ToQString(page_->caption()));

    auto* area = new QWidget(this);
    QFont font = area->font();
    font.setFamily(ToQString(page_->fontName()));
    area->setFont(font);
    area->setFixedSize(scale_.toPixels(0, 0, page_->width(), page_->height()).size());
    buildBindings(area);

    buttons_ = new QDialogButtonBox(
        QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Apply, this);
    connect(buttons_, &QDialogButtonBox::accepted, this, &PropertyPageDialog::accept);
    connect(buttons_, &QDialogButtonBox::rejected, this, &PropertyPageDialog::reject);
    connect(applyButton(), &QPushButton::clicked, this, [this] { apply(); });

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(area);
    layout->addWidget(buttons_);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    changedToken_ = page_->Subscribe([this](const ChangeInfo&) { updateApplyButton(); });
    focusConnection_ = connect(qApp, &QApplication::focusChanged, this,
                               [this](QWidget*, QWidget* now) { focusMoved(now); });
    controlConnection_ = connect(&control, &QObject::destroyed, this, [this] {
        page_->SelectControls({});
        reject();
    });

    runGesture([this] { page_->SelectControls({&control_->control()}); });
    updateApplyButton();
}

PropertyPageDialog::~PropertyPageDialog() {
    // Destroying the widgets below moves Qt's focus; the page must not hear it.
    disconnect(focusConnection_);
    disconnect(controlConnection_);
    page_->Unsubscribe(changedToken_);
    bound_.clear();
}

void PropertyPageDialog::buildBindings(QWidget* area) {
    std::set<std::string_view> frames;
    for (const PageControl& control : page_->controls()) {
        if (!control.container.empty()) frames.insert(control.container);
    }
    // Frames come before the controls they hold in every layout table.
    std::unordered_map<std::string_view, QWidget*> frameWidgets;
    for (const PageControl& control : page_->controls()) {
        const auto container = frameWidgets.find(control.container);
        QWidget* parent = container == frameWidgets.end() ? area : container->second;
        const bool isFrame = frames.count(control.component->name()) > 0;
        auto binding = BindControl(*this, control, isFrame, parent);
        if (isFrame) frameWidgets[control.component->name()] = binding->widget();
        binding->refresh();
        bound_.push_back({std::move(binding), control.focusPart});
    }
}

void PropertyPageDialog::setMessageHandler(MessageHandler handler) {
    sink_.setHandler(std::move(handler));
}

QWidget* PropertyPageDialog::widgetFor(std::string_view name, int index) const {
    const PageControl* control = page_->findControl(name, index);
    if (control == nullptr) return nullptr;
    for (const Bound& bound : bound_) {
        if (&bound.binding->model() == control->component) return bound.binding->widget();
    }
    return nullptr;
}

QPushButton* PropertyPageDialog::okButton() const {
    return buttons_->button(QDialogButtonBox::Ok);
}

QPushButton* PropertyPageDialog::cancelButton() const {
    return buttons_->button(QDialogButtonBox::Cancel);
}

QPushButton* PropertyPageDialog::applyButton() const {
    return buttons_->button(QDialogButtonBox::Apply);
}

bool PropertyPageDialog::apply() {
    runGesture([this] { page_->focus().setFocus(nullptr); });
    runGesture([this] { page_->ApplyChanges(); });
    // Qt's focus may still be on a control (the keyboard pressed the button): the
    // page's focus goes back to it, so leaving it later runs its rule again.
    focusMoved(QApplication::focusWidget());
    return !page_->changed();
}

void PropertyPageDialog::accept() {
    if (apply()) QDialog::accept();
}

void PropertyPageDialog::runGesture(const std::function<void()>& gesture) {
    try {
        gesture();
    } catch (...) {
        sink_.Critical(DescribeCurrentException());
    }
}

void PropertyPageDialog::focusMoved(QWidget* now) {
    // Focus leaving the dialog (a message box, another window) is not the user's
    // move between the page's controls.
    if (now == nullptr || now->window() != this) return;
    Component* part = nullptr;
    for (const Bound& bound : bound_) {
        QWidget* widget = bound.binding->widget();
        if (bound.focusPart != nullptr && (widget == now || widget->isAncestorOf(now))) {
            part = bound.focusPart;
            break;
        }
    }
    if (page_->focus().focused() == part) return;
    runGesture([this, part] { page_->focus().setFocus(part); });
}

void PropertyPageDialog::updateApplyButton() {
    applyButton()->setEnabled(page_->changed());
}

}  // namespace tabulon
