// ModelBinding: one Qt widget that mirrors one model of the headless core. The base of
// the control's bindings (ComponentBinding) and of the property pages' (PageBinding):
// it subscribes to the model and to any inner part it is told to observe, routes each
// notification to geometry or content, and marks its own writes into the widget so
// that the signals they raise are not taken for gestures.
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <set>
#include <tuple>
#include <utility>
#include <vector>

#include "platform/component.h"
#include "qt/twips_scale.h"

namespace tabulon {

class ModelBinding : public QObject {
    Q_OBJECT

public:
    // widget: the Qt widget shown for model, owned by its Qt parent.
    ModelBinding(Component& model, QWidget* widget);
    ~ModelBinding() override;
    ModelBinding(const ModelBinding&) = delete;
    ModelBinding& operator=(const ModelBinding&) = delete;

    Component& model() const { return model_; }
    QWidget* widget() const { return widget_; }

    // Mirrors the whole model again (after creation, or when the scale changed).
    void refresh();

    // While held, notifications are gathered instead of mirrored; release mirrors each
    // distinct one (kind, row, column, from the model or a part) once, in the order
    // they first came. For a block edit: its many cells cost one mirroring.
    void hold();
    void release();

protected:
    // Observes another model of the same component (an inner part); its
    // notifications reach handler, or onChange like the component's own when handler
    // is empty.
    void observe(Observable& part, Observable::Observer handler = {});

    // A notification of the model or an observed part: Geometry and Enabled place
    // the widget again, Focus is left to the owner of Qt's focus, every other kind
    // mirrors content, and Everything does both.
    virtual void onChange(const ChangeInfo& change);
    // Places, enables and shows the widget from the model.
    virtual void applyGeometry() = 0;
    // Mirrors content (text, items, values); the default does nothing.
    virtual void applyState(const ChangeInfo& change);

    // The model's position and size into the widget, with scale (or as given in
    // pixels), and enabled as given; the caller shows or hides it.
    void placeWidget(const TwipsScale& scale, bool enabled);
    void placeWidget(const QRect& pixels, bool enabled);

    // True while the binding writes into its widgets: signals raised by those writes
    // are not gestures.
    bool mirroring() const { return mirroring_ > 0; }
    class Mirroring {
    public:
        explicit Mirroring(ModelBinding& binding) : binding_(binding) { ++binding_.mirroring_; }
        ~Mirroring() { --binding_.mirroring_; }
        Mirroring(const Mirroring&) = delete;
        Mirroring& operator=(const Mirroring&) = delete;

    private:
        ModelBinding& binding_;
    };

private:
    struct Subscription {
        Observable* part;
        int token;
        Observable::Observer handler;
    };
    void receive(std::size_t subscription, const ChangeInfo& change);

    Component& model_;
    QPointer<QWidget> widget_;
    std::vector<Subscription> subscriptions_;
    int mirroring_ = 0;
    bool held_ = false;
    std::vector<std::pair<std::size_t, ChangeInfo>> gathered_;
    std::set<std::tuple<std::size_t, Change, int, int>> gatheredKeys_;
};

}  // namespace tabulon
