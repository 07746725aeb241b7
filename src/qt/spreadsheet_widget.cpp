#include "qt/spreadsheet_widget.h"

#include <QApplication>
#include <QFocusEvent>
#include <QPointer>
#include <QResizeEvent>
#include <QShowEvent>
#include <QWheelEvent>
#include <cmath>

#include <exception>
#include <unordered_map>
#include <utility>
#include <vector>

#include "control/control_access.h"
#include "qt/bindings/binding_host.h"
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
#include "qt/editor_cues.h"
#include "qt/find_bar.h"
#include "qt/qt_clipboard.h"
#include "qt/qt_message_sink.h"
#include "qt/qt_text.h"
#include "qt/twips_scale.h"
#include "qt/widget_host_events.h"
#include "support/failure.h"

namespace tabulon {

// The widget's state and the host side of its bindings.
class SpreadsheetWidget::Private : public BindingHost {
public:
    explicit Private(SpreadsheetWidget& widget)
        : q_(widget),
          sink_(&widget),
          hostEvents_(std::make_unique<WidgetHostEvents>(widget)),
          control_(std::make_unique<Generic_SP_Control>(sink_, *hostEvents_)),
          scale_(widget.logicalDpiX(), widget.logicalDpiY()) {
        sink_.setBeforeMessage([this] { catchUp(); });
        hostEvents_->setBeforeEvent([this] { catchUp(); });
    }

    Generic_SP_Control& control() override { return *control_; }
    const TwipsScale& scale() const override { return scale_; }
    void syncFocusToModel() override;
    void wheelOverGrid(const QWheelEvent& event) override;
    QRect onGridPixels(std::int32_t left, std::int32_t top, std::int32_t width,
                       std::int32_t height) const override;
    void runGesture(const std::function<void()>& gesture) override;
    void mirrorLater(QObject* binding, std::function<void()> mirror) override;
    // Runs the mirrors put off until now.
    void catchUp();

    // Counts the gestures and host calls under way; when the outermost ends, the
    // edit-state signals follow for what changed.
    class EditStateAfterwards {
    public:
        explicit EditStateAfterwards(Private& d) : d_(d), failures_(std::uncaught_exceptions()) {
            ++d_.calls_;
        }
        ~EditStateAfterwards();
        EditStateAfterwards(const EditStateAfterwards&) = delete;
        EditStateAfterwards& operator=(const EditStateAfterwards&) = delete;

    private:
        Private& d_;
        int failures_;
    };
    // A member of the control called by the host, with the signals afterwards.
    template <class Call>
    auto hostCall(Call&& call) {
        const EditStateAfterwards afterwards(*this);
        return call();
    }
    void emitEditState();
    // Holds or releases every binding and the focus as the core's view batch says
    // (view/view_batch.h): a block edit is mirrored once, when it ends.
    void followViewBatch();
    // The model's focus moved: followed now, or once the held views are released.
    void focusMoved();

    void buildBindings();
    void nameParts();
    template <class B, class... Args>
    B& bind(Args&&... args);
    ComponentBinding* bindingFor(const Component& model) const;
    // Re-reads the screen's DPI; a change places every widget again. True when it
    // changed.
    bool updateScale();
    // The host's size, in twips, to the control's resize handling.
    void applySize();
    // The control's smallest layout, in pixels, as the widget's minimum size.
    void applyMinimumSize();

    SpreadsheetWidget& q_;
    QtMessageSink sink_;
    QtClipboard clipboard_;
    std::unique_ptr<WidgetHostEvents> hostEvents_;
    std::unique_ptr<Generic_SP_Control> control_;
    TwipsScale scale_;
    std::vector<std::unique_ptr<ComponentBinding>> bindings_;
    std::unordered_map<const Component*, ComponentBinding*> byModel_;
    int focusToken_ = 0;
    int viewBatchToken_ = 0;
    bool viewsHeld_ = false;
    bool focusMovedWhileHeld_ = false;
    int calls_ = 0;
    std::vector<std::pair<QPointer<QObject>, std::function<void()>>> later_;
    bool canUndo_ = false;
    bool canRedo_ = false;
    bool modified_ = false;
    int problemsToken_ = 0;
    int problemCount_ = 0;
    std::unique_ptr<EditorCues> cues_;
    FindBar* findBar_ = nullptr;
};

SpreadsheetWidget::SpreadsheetWidget(QWidget* parent, PropertyBag* savedSettings,
                                     MessageHandler messages)
    : QWidget(parent), d_(std::make_unique<Private>(*this)) {
    setFocusPolicy(Qt::StrongFocus);
    d_->sink_.setHandler(std::move(messages));
    Generic_SP_Control& control = *d_->control_;
    FormOf(control).ilsTreeView.setLoader(LoadDecodedPicture);
    control.SetClipboard(&d_->clipboard_);
    if (savedSettings != nullptr) {
        control.ReadProperties(*savedSettings);
    } else {
        control.InitProperties();
    }
    d_->buildBindings();
    d_->applyMinimumSize();
    d_->focusToken_ =
        FormOf(control).focus.Subscribe([this](const ChangeInfo&) { d_->focusMoved(); });
    d_->cues_ = std::make_unique<EditorCues>(*this);
    d_->findBar_ = new FindBar(*this, *d_);
    ControlCore& core = CoreOf(control);
    d_->viewBatchToken_ =
        core.views.Subscribe([this](const ChangeInfo&) { d_->followViewBatch(); });
    core.find.onRequested = [this] { d_->findBar_->open(); };
    d_->problemsToken_ = core.problems.Subscribe([this](const ChangeInfo&) {
        const int count = d_->control_->ProblemCount();
        if (count == d_->problemCount_) return;
        d_->problemCount_ = count;
        Q_EMIT ProblemCountChanged(count);
    });
}

SpreadsheetWidget::~SpreadsheetWidget() {
    FormOf(*d_->control_).focus.Unsubscribe(d_->focusToken_);
    CoreOf(*d_->control_).views.Unsubscribe(d_->viewBatchToken_);
    CoreOf(*d_->control_).problems.Unsubscribe(d_->problemsToken_);
    CoreOf(*d_->control_).find.onRequested = nullptr;
    d_->cues_.reset();
    d_->byModel_.clear();
    d_->bindings_.clear();
    d_->control_->Terminate();
    d_->control_.reset();
}

Generic_SP_Control& SpreadsheetWidget::control() {
    return *d_->control_;
}

const Generic_SP_Control& SpreadsheetWidget::control() const {
    return *d_->control_;
}

const TwipsScale& SpreadsheetWidget::scale() const {
    return d_->scale_;
}

template <class B, class... Args>
B& SpreadsheetWidget::Private::bind(Args&&... args) {
    auto binding =
        std::make_unique<B>(static_cast<BindingHost&>(*this), std::forward<Args>(args)...);
    B& bound = *binding;
    byModel_[&bound.model()] = &bound;
    bindings_.push_back(std::move(binding));
    return bound;
}

void SpreadsheetWidget::Private::buildBindings() {
    Form& f = FormOf(*control_);
    QWidget* const self = &q_;
    // Created in stacking order: later widgets lie above earlier ones, the cell
    // editors above everything.
    bind<TreeBinding>(f.treTreeView, f.ilsTreeView, self);
    bind<SplitterBinding>(f.imgSplitter, f.treTreeView, self);
    QWidget* frame =
        bind<CaptionBinding>(f.fraFilterView, CaptionBinding::Kind::GroupBox, self).widget();
    bind<CaptionBinding>(f.lblFilter, CaptionBinding::Kind::Text, frame);
    bind<ComboBoxBinding>(f.cboFilter, frame);
    bind<GridBinding>(f.msgGridView, self);
    bind<ScrollBarBinding>(f.vscGrid, f.vscGrid.bar(), Qt::Vertical, self);
    bind<ScrollBarBinding>(f.hscGrid, f.hscGrid.bar(), Qt::Horizontal, self);
    bind<ButtonBinding>(f.cmdPrint, self);
    bind<ButtonBinding>(f.cmdOK, self);
    bind<ButtonBinding>(f.cmdCancel, self);
    bind<ButtonBinding>(f.cmdHelp, self);
    bind<TextBoxBinding>(f.txtTextBoxControl, self);
    bind<ComboBoxBinding>(f.cboComboBoxControl, self);
    bind<UnitNumBinding>(f.unitNumControl, self);
    bind<UnitDropBinding>(f.unitDropControl, self);
    for (const auto& binding : bindings_)
        binding->refresh();
    nameParts();
}

// Names for assistive technology where a part's caption does not say it, and the
// access keys of the buttons (their captions stay as they are).
void SpreadsheetWidget::Private::nameParts() {
    Form& f = FormOf(*control_);
    bindingFor(f.hscGrid)->widget()->setAccessibleName(QObject::tr("Scroll columns"));
    bindingFor(f.vscGrid)->widget()->setAccessibleName(QObject::tr("Scroll rows"));
    bindingFor(f.imgSplitter)->widget()->setAccessibleName(QObject::tr("Tree width"));
    auto* label = static_cast<CaptionBinding*>(bindingFor(f.lblFilter))->label();
    if (label != nullptr) label->setBuddy(bindingFor(f.cboFilter)->widget());
    const std::pair<Button*, const char*> buttons[] = {{&f.cmdPrint, "Alt+V"},
                                                       {&f.cmdOK, "Alt+O"},
                                                       {&f.cmdCancel, "Alt+C"},
                                                       {&f.cmdHelp, "Alt+H"}};
    for (const auto& [button, keys] : buttons) {
        bindingFor(*button)->widget()->setAccessibleDescription(
            QObject::tr("Shortcut: %1").arg(QLatin1String(keys)));
    }
}

ComponentBinding* SpreadsheetWidget::Private::bindingFor(const Component& model) const {
    const auto found = byModel_.find(&model);
    return found == byModel_.end() ? nullptr : found->second;
}

ComponentBinding* SpreadsheetWidget::bindingFor(const Component& model) const {
    return d_->bindingFor(model);
}

QWidget* SpreadsheetWidget::widgetFor(const Component& model) const {
    const ComponentBinding* binding = d_->bindingFor(model);
    return binding == nullptr ? nullptr : binding->widget();
}

QWidget* SpreadsheetWidget::findBar() const {
    return d_->findBar_;
}

void SpreadsheetWidget::setMessageHandler(MessageHandler handler) {
    d_->sink_.setHandler(std::move(handler));
}

void SpreadsheetWidget::saveSettings(PropertyBag& bag) {
    d_->control_->WriteProperties(bag);
}

// --- properties

QString SpreadsheetWidget::XML() const {
    return ToQString(d_->control_->XML());
}

void SpreadsheetWidget::setXML(const QString& value) {
    d_->control_->SetXML(ToStdString(value));
}

qulonglong SpreadsheetWidget::MaxDocumentBytes() const {
    return d_->control_->MaxDocumentBytes();
}

void SpreadsheetWidget::setMaxDocumentBytes(qulonglong bytes) {
    d_->control_->SetMaxDocumentBytes(bytes);
}

QString SpreadsheetWidget::LastSaveError() const {
    return ToQString(d_->control_->LastSaveError());
}

QString SpreadsheetWidget::FilterValue() const {
    return ToQString(d_->control_->FilterValue());
}

void SpreadsheetWidget::setFilterValue(const QString& value) {
    d_->control_->SetFilterValue(ToStdString(value));
}

QString SpreadsheetWidget::DisplayColWidth() const {
    return ToQString(d_->control_->DisplayColWidth());
}

void SpreadsheetWidget::setDisplayColWidth(const QString& value) {
    d_->control_->SetDisplayColWidth(ToStdString(value));
}

gGeneralProperty_type SpreadsheetWidget::GeneralProperty() const {
    return d_->control_->GeneralProperty();
}

void SpreadsheetWidget::setGeneralProperty(const gGeneralProperty_type& value) {
    d_->hostCall([&] { d_->control_->SetGeneralProperty(value); });
}

gButtonProperty_type SpreadsheetWidget::ButtonProperty() const {
    return d_->control_->ButtonProperty();
}

void SpreadsheetWidget::setButtonProperty(const gButtonProperty_type& value) {
    d_->control_->SetButtonProperty(value);
}

bool SpreadsheetWidget::ProtectiveEditing() const {
    return d_->control_->ProtectiveEditing();
}

void SpreadsheetWidget::setProtectiveEditing(bool on) {
    d_->control_->SetProtectiveEditing(on);
}

bool SpreadsheetWidget::canUndo() const {
    return d_->control_->CanUndo();
}

bool SpreadsheetWidget::canRedo() const {
    return d_->control_->CanRedo();
}

bool SpreadsheetWidget::isModified() const {
    return d_->control_->IsModified();
}

void SpreadsheetWidget::setModified(bool modified) {
    d_->hostCall([&] { d_->control_->SetModified(modified); });
}

// --- members

bool SpreadsheetWidget::Load(const QString& XMLSource) {
    return d_->hostCall([&] { return d_->control_->Load(ToStdString(XMLSource)); });
}

bool SpreadsheetWidget::LoadXML(const QString& bstrXML) {
    return d_->hostCall([&] { return d_->control_->LoadXML(ToStdString(bstrXML)); });
}

void SpreadsheetWidget::Reposition_Button() {
    d_->control_->Reposition_Button();
}

void SpreadsheetWidget::RefreshAdvanceScrollbars() {
    d_->control_->RefreshAdvanceScrollbars();
}

void SpreadsheetWidget::MoveNextCell(qint16 KeyAscii) {
    d_->hostCall([&] { d_->control_->MoveNextCell(KeyAscii); });
}

void SpreadsheetWidget::MovePreviousCell(qint16 KeyAscii) {
    d_->hostCall([&] { d_->control_->MovePreviousCell(KeyAscii); });
}

void SpreadsheetWidget::MoveNextColumn() {
    d_->hostCall([&] { d_->control_->MoveNextColumn(); });
}

void SpreadsheetWidget::MovePreviousColumn() {
    d_->hostCall([&] { d_->control_->MovePreviousColumn(); });
}

bool SpreadsheetWidget::Undo() {
    return d_->hostCall([&] { return d_->control_->Undo(); });
}

bool SpreadsheetWidget::Redo() {
    return d_->hostCall([&] { return d_->control_->Redo(); });
}

bool SpreadsheetWidget::NextProblem() {
    return d_->hostCall([&] { return d_->control_->NextProblem(); });
}

bool SpreadsheetWidget::PreviousProblem() {
    return d_->hostCall([&] { return d_->control_->PreviousProblem(); });
}

void SpreadsheetWidget::showFindBar() {
    d_->findBar_->open();
}

// --- size, showing, focus

QSize SpreadsheetWidget::sizeHint() const {
    const Component& self = FormOf(*d_->control_).control;
    return d_->scale_.toPixels(0, 0, self.width(), self.height()).size();
}

bool SpreadsheetWidget::Private::updateScale() {
    const TwipsScale scale(q_.logicalDpiX(), q_.logicalDpiY());
    if (scale == scale_) return false;
    scale_ = scale;
    applyMinimumSize();
    for (const auto& binding : bindings_)
        binding->refresh();
    return true;
}

// Rounded up: the whole of the control's smallest layout fits.
void SpreadsheetWidget::Private::applyMinimumSize() {
    const auto pixels = [](std::int32_t twips, double dpi) {
        return static_cast<int>(std::ceil(twips * dpi / TwipsScale::kTwipsPerInch));
    };
    q_.setMinimumSize(pixels(Generic_SP_Control::kMinimumWidth, scale_.dpiX()),
                      pixels(Generic_SP_Control::kMinimumHeight, scale_.dpiY()));
}

void SpreadsheetWidget::Private::applySize() {
    const std::int32_t width = scale_.toTwipsX(q_.width());
    const std::int32_t height = scale_.toTwipsY(q_.height());
    runGesture([this, width, height] { control_->Resize(width, height); });
}

bool SpreadsheetWidget::event(QEvent* event) {
    const bool handled = QWidget::event(event);
    // Moved to a screen of another DPI: the same pixels are other twips now.
    if (event->type() == QEvent::ScreenChangeInternal && d_->updateScale() &&
        d_->control_->shown()) {
        d_->applySize();
    }
    return handled;
}

void SpreadsheetWidget::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    d_->updateScale();
    if (d_->control_->shown()) d_->applySize();
    if (d_->findBar_->isVisible()) d_->findBar_->place();
}

void SpreadsheetWidget::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    d_->updateScale();
    if (d_->control_->shown()) return;
    d_->runGesture([this] { d_->control_->Show(); });
    d_->applySize();
}

// The control itself draws nothing that shows the focus, so QWidget's own handlers,
// which repaint the whole widget, are left out: the focus passes through the control on
// its way to the grid each time an editor closes (every Tab, Enter and click), and that
// repaint covered the tree and every button beside the grid.
void SpreadsheetWidget::focusInEvent(QFocusEvent* /*event*/) {
    d_->syncFocusToModel();
}

void SpreadsheetWidget::Private::followViewBatch() {
    viewsHeld_ = CoreOf(*control_).views.held();
    for (const auto& binding : bindings_) {
        if (viewsHeld_) {
            binding->hold();
        } else {
            binding->release();
        }
    }
    if (!viewsHeld_ && focusMovedWhileHeld_) {
        focusMovedWhileHeld_ = false;
        syncFocusToModel();
    }
}

void SpreadsheetWidget::Private::focusMoved() {
    if (viewsHeld_) {
        focusMovedWhileHeld_ = true;
        return;
    }
    syncFocusToModel();
}

void SpreadsheetWidget::focusOutEvent(QFocusEvent* /*event*/) {}

void SpreadsheetWidget::Private::syncFocusToModel() {
    // An open drop-down holds the focus for the combo that opened it.
    if (QApplication::activePopupWidget() != nullptr) return;
    QWidget* current = QApplication::focusWidget();
    // The find bar keeps the focus while it is used; the control has it back on Escape.
    if (findBar_ != nullptr && current != nullptr && findBar_->isAncestorOf(current)) return;
    const Component* focused = FormOf(*control_).focus.focused();
    const ComponentBinding* binding = focused == nullptr ? nullptr : bindingFor(*focused);
    if (binding != nullptr) {
        QWidget* own = binding->widget();
        if (current != nullptr && (current == own || own->isAncestorOf(current))) return;
        // A widget still hidden or disabled by a mirror put off would refuse the focus.
        if (!binding->focusTarget()->isEnabled() || !binding->focusTarget()->isVisible()) catchUp();
        binding->focusTarget()->setFocus(Qt::OtherFocusReason);
        return;
    }
    if (current != nullptr && current != &q_ && q_.isAncestorOf(current)) {
        q_.setFocus(Qt::OtherFocusReason);
    }
}

void SpreadsheetWidget::Private::wheelOverGrid(const QWheelEvent& event) {
    const ComponentBinding* binding = bindingFor(FormOf(*control_).msgGridView);
    QWidget* grid = binding == nullptr ? nullptr : binding->widget();
    if (grid == nullptr || !grid->isVisible()) return;
    QWheelEvent forwarded(grid->mapFromGlobal(event.globalPosition()), event.globalPosition(),
                          event.pixelDelta(), event.angleDelta(), event.buttons(),
                          event.modifiers(), event.phase(), event.inverted(), event.source());
    QApplication::sendEvent(grid, &forwarded);
}

QRect SpreadsheetWidget::Private::onGridPixels(std::int32_t left, std::int32_t top,
                                               std::int32_t width, std::int32_t height) const {
    const Form& form = FormOf(*control_);
    const FlexGrid& grid = form.msgGridView;
    const QRect plain = scale_.toPixels(left, top, width, height);
    const auto* binding = dynamic_cast<const GridBinding*>(bindingFor(grid));
    if (binding == nullptr) return plain;
    const GridView& view = *binding->view();
    const int x0 = scale_.toPixelsX(grid.left());
    const int y0 = scale_.toPixelsY(grid.top());
    const std::int64_t right = std::int64_t{left} + std::max<std::int32_t>(width, 0);
    const std::int64_t bottom = std::int64_t{top} + std::max<std::int32_t>(height, 0);
    QRect rect(QPoint(x0 + view.colEdge(left - grid.left()), y0 + view.rowEdge(top - grid.top())),
               QPoint(x0 + view.colEdge(right - grid.left()) - 1,
                      y0 + view.rowEdge(bottom - grid.top()) - 1));
    // An edge the control cut back at one of the grid's own bars ends where the bar
    // begins.
    if (form.vscGrid.visible() && right == form.vscGrid.left()) rect.setRight(plain.right());
    if (form.hscGrid.visible() && bottom == form.hscGrid.top()) rect.setBottom(plain.bottom());
    return rect;
}

void SpreadsheetWidget::Private::runGesture(const std::function<void()>& gesture) {
    const EditStateAfterwards afterwards(*this);
    try {
        gesture();
    } catch (...) {
        sink_.Critical(DescribeCurrentException());
    }
}

SpreadsheetWidget::Private::EditStateAfterwards::~EditStateAfterwards() {
    if (--d_.calls_ > 0) return;
    d_.catchUp();
    if (std::uncaught_exceptions() > failures_) {
        // Not while a failure travels to the host: once the event loop runs again.
        QMetaObject::invokeMethod(
            &d_.q_, [d = &d_] { d->emitEditState(); }, Qt::QueuedConnection);
        return;
    }
    d_.emitEditState();
}

void SpreadsheetWidget::Private::mirrorLater(QObject* binding, std::function<void()> mirror) {
    if (calls_ == 0) {
        mirror();
        return;
    }
    for (const auto& [waiting, ignored] : later_) {
        if (waiting == binding) return;
    }
    later_.emplace_back(binding, std::move(mirror));
}

void SpreadsheetWidget::Private::catchUp() {
    while (!later_.empty()) {
        const auto waiting = std::move(later_);
        later_.clear();
        for (const auto& [binding, mirror] : waiting) {
            if (binding != nullptr) mirror();
        }
    }
}

void SpreadsheetWidget::Private::emitEditState() {
    const bool canUndo = control_->CanUndo();
    const bool canRedo = control_->CanRedo();
    const bool modified = control_->IsModified();
    if (canUndo != canUndo_) Q_EMIT q_.canUndoChanged(canUndo_ = canUndo);
    if (canRedo != canRedo_) Q_EMIT q_.canRedoChanged(canRedo_ = canRedo);
    if (modified != modified_) Q_EMIT q_.modifiedChanged(modified_ = modified);
}

}  // namespace tabulon
