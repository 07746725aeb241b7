#include "qt/pages/property_page_dialog.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>
#include <set>
#include <stdexcept>
#include <string>
#include <unordered_map>
#include <vector>

#include "propertypages/button_page.h"
#include "propertypages/general_page.h"
#include "propertypages/property_page.h"
#include "qt/pages/page_binding.h"
#include "qt/pages/page_control_bindings.h"
#include "qt/pages/page_text_binding.h"
#include "qt/qt_message_sink.h"
#include "qt/qt_text.h"
#include "qt/spreadsheet_widget.h"
#include "qt/twips_scale.h"
#include "subcontrols/numeric_text_box.h"
#include "support/failure.h"

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

// The dialog's state and the host side of its bindings.
class PropertyPageDialog::Private : public PageBindingHost {
public:
    Private(PropertyPageDialog& dialog, Kind kind, SpreadsheetWidget& control)
        : q_(dialog),
          sink_(&dialog),
          page_(MakePage(kind, sink_)),
          control_(&control),
          scale_(dialog.logicalDpiX(), dialog.logicalDpiY()) {}

    PropertyPage& page() override { return *page_; }
    const TwipsScale& scale() const override { return scale_; }
    void runGesture(const std::function<void()>& gesture) override;

    void buildBindings(QWidget* area);
    // Qt's focus moved to now: the page's focus follows (see the decisions above).
    void focusMoved(QWidget* now);
    void updateApplyButton();

    struct Bound {
        std::unique_ptr<PageBinding> binding;
        Component* focusPart;  // null for frames and labels
    };

    PropertyPageDialog& q_;
    QtMessageSink sink_;
    std::unique_ptr<PropertyPage> page_;
    QPointer<SpreadsheetWidget> control_;
    TwipsScale scale_;
    std::vector<Bound> bound_;
    QDialogButtonBox* buttons_ = nullptr;
    int changedToken_ = 0;
    QMetaObject::Connection focusConnection_;
    QMetaObject::Connection controlConnection_;
};

PropertyPageDialog::PropertyPageDialog(Kind kind, SpreadsheetWidget& control, QWidget* parent,
                                       MessageHandler messages)
    : QDialog(parent), d_(std::make_unique<Private>(*this, kind, control)) {
    Private& d = *d_;
    d.sink_.setHandler(std::move(messages));
    setWindowTitle(ToQString(d.page_->caption()));

    auto* area = new QWidget(this);
    QFont font = area->font();
    font.setFamily(ToQString(d.page_->fontName()));
    area->setFont(font);
    area->setFixedSize(d.scale_.toPixels(0, 0, d.page_->width(), d.page_->height()).size());
    d.buildBindings(area);

    d.buttons_ = new QDialogButtonBox(
        QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Apply, this);
    connect(d.buttons_, &QDialogButtonBox::accepted, this, &PropertyPageDialog::accept);
    connect(d.buttons_, &QDialogButtonBox::rejected, this, &PropertyPageDialog::reject);
    connect(applyButton(), &QPushButton::clicked, this, [this] { apply(); });

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(area);
    layout->addWidget(d.buttons_);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    d.changedToken_ = d.page_->Subscribe([this](const ChangeInfo&) { d_->updateApplyButton(); });
    d.focusConnection_ = connect(qApp, &QApplication::focusChanged, this,
                                 [this](QWidget*, QWidget* now) { d_->focusMoved(now); });
    d.controlConnection_ = connect(&control, &QObject::destroyed, this, [this] {
        d_->page_->SelectControls({});
        reject();
    });

    d.runGesture([this] { d_->page_->SelectControls({&d_->control_->control()}); });
    d.updateApplyButton();
}

PropertyPageDialog::~PropertyPageDialog() {
    // Destroying the widgets below moves Qt's focus; the page must not hear it.
    disconnect(d_->focusConnection_);
    disconnect(d_->controlConnection_);
    d_->page_->Unsubscribe(d_->changedToken_);
    d_->bound_.clear();
}

PropertyPage& PropertyPageDialog::page() {
    return *d_->page_;
}

void PropertyPageDialog::Private::buildBindings(QWidget* area) {
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
    d_->sink_.setHandler(std::move(handler));
}

QWidget* PropertyPageDialog::widgetFor(std::string_view name, int index) const {
    const PageControl* control = d_->page_->findControl(name, index);
    if (control == nullptr) return nullptr;
    for (const Private::Bound& bound : d_->bound_) {
        if (&bound.binding->model() == control->component) return bound.binding->widget();
    }
    return nullptr;
}

QPushButton* PropertyPageDialog::okButton() const {
    return d_->buttons_->button(QDialogButtonBox::Ok);
}

QPushButton* PropertyPageDialog::cancelButton() const {
    return d_->buttons_->button(QDialogButtonBox::Cancel);
}

QPushButton* PropertyPageDialog::applyButton() const {
    return d_->buttons_->button(QDialogButtonBox::Apply);
}

bool PropertyPageDialog::apply() {
    Private& d = *d_;
    d.runGesture([&d] { d.page_->focus().setFocus(nullptr); });
    d.runGesture([&d] { d.page_->ApplyChanges(); });
    // Qt's focus may still be on a control (the keyboard pressed the button): the
    // page's focus goes back to it, so leaving it later runs its rule again.
    d.focusMoved(QApplication::focusWidget());
    return !d.page_->changed();
}

void PropertyPageDialog::accept() {
    if (apply()) QDialog::accept();
}

void PropertyPageDialog::Private::runGesture(const std::function<void()>& gesture) {
    try {
        gesture();
    } catch (...) {
        sink_.Critical(DescribeCurrentException());
    }
}

void PropertyPageDialog::Private::focusMoved(QWidget* now) {
    // Focus leaving the dialog (a message box, another window) is not the user's
    // move between the page's controls.
    if (now == nullptr || now->window() != &q_) return;
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

void PropertyPageDialog::Private::updateApplyButton() {
    q_.applyButton()->setEnabled(page_->changed());
}

}  // namespace tabulon
