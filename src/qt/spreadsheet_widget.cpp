#include "qt/spreadsheet_widget.h"

#include <QApplication>
#include <QFocusEvent>
#include <QResizeEvent>
#include <QShowEvent>

#include "qt/bindings/button_binding.h"
#include "qt/bindings/caption_binding.h"
#include "qt/bindings/combo_box_binding.h"
#include "qt/bindings/grid_binding.h"
#include "qt/bindings/picture_decoding.h"
#include "qt/bindings/scroll_bar_binding.h"
#include "qt/bindings/splitter_binding.h"
#include "qt/bindings/text_box_binding.h"
#include "qt/bindings/tree_binding.h"
#include "qt/bindings/unit_drop_binding.h"
#include "qt/bindings/unit_num_binding.h"
#include "qt/qt_text.h"
#include "qt/widget_host_events.h"
#include "support/failure.h"

namespace tabulon {

SpreadsheetWidget::SpreadsheetWidget(QWidget* parent, PropertyBag* savedSettings,
                                     MessageHandler messages)
    : QWidget(parent),
      sink_(this),
      hostEvents_(std::make_unique<WidgetHostEvents>(*this)),
      control_(std::make_unique<Generic_SP_Control>(sink_, *hostEvents_)),
      scale_(logicalDpiX(), logicalDpiY()) {
    setFocusPolicy(Qt::StrongFocus);
    sink_.setHandler(std::move(messages));
    control_->form().ilsTreeView.setLoader(LoadDecodedPicture);
    if (savedSettings != nullptr) {
        control_->ReadProperties(*savedSettings);
    } else {
        control_->InitProperties();
    }
    buildBindings();
    focusToken_ =
        control_->form().focus.Subscribe([this](const ChangeInfo&) { syncFocusToModel(); });
}

SpreadsheetWidget::~SpreadsheetWidget() {
    control_->form().focus.Unsubscribe(focusToken_);
    byModel_.clear();
    bindings_.clear();
    control_->Terminate();
    control_.reset();
}

template <class B, class... Args>
B& SpreadsheetWidget::bind(Args&&... args) {
    auto binding =
        std::make_unique<B>(static_cast<BindingHost&>(*this), std::forward<Args>(args)...);
    B& bound = *binding;
    byModel_[&bound.model()] = &bound;
    bindings_.push_back(std::move(binding));
    return bound;
}

void SpreadsheetWidget::buildBindings() {
    Form& f = control_->form();
    // Created in stacking order: later widgets lie above earlier ones, the cell
    // editors above everything.
    bind<TreeBinding>(f.treTreeView, f.ilsTreeView, this);
    bind<SplitterBinding>(f.imgSplitter, f.treTreeView, this);
    QWidget* frame =
        bind<CaptionBinding>(f.fraFilterView, CaptionBinding::Kind::GroupBox, this).widget();
    bind<CaptionBinding>(f.lblFilter, CaptionBinding::Kind::Text, frame);
    bind<ComboBoxBinding>(f.cboFilter, frame);
    bind<GridBinding>(f.msgGridView, this);
    bind<ScrollBarBinding>(f.vscGrid, f.vscGrid.bar(), Qt::Vertical, this);
    bind<ScrollBarBinding>(f.hscGrid, f.hscGrid.bar(), Qt::Horizontal, this);
    bind<ButtonBinding>(f.cmdPrint, this);
    bind<ButtonBinding>(f.cmdOK, this);
    bind<ButtonBinding>(f.cmdCancel, this);
    bind<ButtonBinding>(f.cmdHelp, this);
    bind<TextBoxBinding>(f.txtTextBoxControl, this);
    bind<ComboBoxBinding>(f.cboComboBoxControl, this);
    bind<UnitNumBinding>(f.unitNumControl, this);
    bind<UnitDropBinding>(f.unitDropControl, this);
    for (const auto& binding : bindings_)
        binding->refresh();
}

ComponentBinding* SpreadsheetWidget::bindingFor(const Component& model) const {
    const auto found = byModel_.find(&model);
    return found == byModel_.end() ? nullptr : found->second;
}

QWidget* SpreadsheetWidget::widgetFor(const Component& model) const {
    const ComponentBinding* binding = bindingFor(model);
    return binding == nullptr ? nullptr : binding->widget();
}

void SpreadsheetWidget::setMessageHandler(MessageHandler handler) {
    sink_.setHandler(std::move(handler));
}

void SpreadsheetWidget::saveSettings(PropertyBag& bag) {
    control_->WriteProperties(bag);
}

// --- properties

QString SpreadsheetWidget::XML() const {
    return ToQString(control_->XML());
}

void SpreadsheetWidget::setXML(const QString& value) {
    control_->SetXML(ToStdString(value));
}

QString SpreadsheetWidget::FilterValue() const {
    return ToQString(control_->FilterValue());
}

void SpreadsheetWidget::setFilterValue(const QString& value) {
    control_->SetFilterValue(ToStdString(value));
}

QString SpreadsheetWidget::DisplayColWidth() const {
    return ToQString(control_->DisplayColWidth());
}

void SpreadsheetWidget::setDisplayColWidth(const QString& value) {
    control_->SetDisplayColWidth(ToStdString(value));
}

gGeneralProperty_type SpreadsheetWidget::GeneralProperty() const {
    return control_->GeneralProperty();
}

void SpreadsheetWidget::setGeneralProperty(const gGeneralProperty_type& value) {
    control_->SetGeneralProperty(value);
}

gButtonProperty_type SpreadsheetWidget::ButtonProperty() const {
    return control_->ButtonProperty();
}

void SpreadsheetWidget::setButtonProperty(const gButtonProperty_type& value) {
    control_->SetButtonProperty(value);
}

// --- members

bool SpreadsheetWidget::Load(const QString& XMLSource) {
    return control_->Load(ToStdString(XMLSource));
}

bool SpreadsheetWidget::LoadXML(const QString& bstrXML) {
    return control_->LoadXML(ToStdString(bstrXML));
}

void SpreadsheetWidget::Reposition_Button() {
    control_->Reposition_Button();
}

void SpreadsheetWidget::RefreshAdvanceScrollbars() {
    control_->RefreshAdvanceScrollbars();
}

void SpreadsheetWidget::MoveNextCell(qint16 KeyAscii) {
    control_->MoveNextCell(KeyAscii);
}

void SpreadsheetWidget::MovePreviousCell(qint16 KeyAscii) {
    control_->MovePreviousCell(KeyAscii);
}

void SpreadsheetWidget::MoveNextColumn() {
    control_->MoveNextColumn();
}

void SpreadsheetWidget::MovePreviousColumn() {
    control_->MovePreviousColumn();
}

// --- size, showing, focus

QSize SpreadsheetWidget::sizeHint() const {
    const Component& self = control_->form().control;
    return scale_.toPixels(0, 0, self.width(), self.height()).size();
}

bool SpreadsheetWidget::updateScale() {
    const TwipsScale scale(logicalDpiX(), logicalDpiY());
    if (scale == scale_) return false;
    scale_ = scale;
    for (const auto& binding : bindings_)
        binding->refresh();
    return true;
}

void SpreadsheetWidget::applySize() {
    const std::int32_t width = scale_.toTwipsX(this->width());
    const std::int32_t height = scale_.toTwipsY(this->height());
    runGesture([this, width, height] { control_->Resize(width, height); });
}

bool SpreadsheetWidget::event(QEvent* event) {
    const bool handled = QWidget::event(event);
    // Moved to a screen of another DPI: the same pixels are other twips now.
    if (event->type() == QEvent::ScreenChangeInternal && updateScale() && control_->shown()) {
        applySize();
    }
    return handled;
}

void SpreadsheetWidget::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    updateScale();
    if (control_->shown()) applySize();
}

void SpreadsheetWidget::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    updateScale();
    if (control_->shown()) return;
    runGesture([this] { control_->Show(); });
    applySize();
}

void SpreadsheetWidget::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    syncFocusToModel();
}

void SpreadsheetWidget::syncFocusToModel() {
    // An open drop-down holds the focus for the combo that opened it.
    if (QApplication::activePopupWidget() != nullptr) return;
    const Component* focused = control_->form().focus.focused();
    const ComponentBinding* binding = focused == nullptr ? nullptr : bindingFor(*focused);
    QWidget* current = QApplication::focusWidget();
    if (binding != nullptr) {
        QWidget* own = binding->widget();
        if (current != nullptr && (current == own || own->isAncestorOf(current))) return;
        binding->focusTarget()->setFocus(Qt::OtherFocusReason);
        return;
    }
    if (current != nullptr && current != this && isAncestorOf(current)) {
        setFocus(Qt::OtherFocusReason);
    }
}

void SpreadsheetWidget::runGesture(const std::function<void()>& gesture) {
    try {
        gesture();
    } catch (...) {
        sink_.Critical(DescribeCurrentException());
    }
}

}  // namespace tabulon
