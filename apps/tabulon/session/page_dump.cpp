#include "session/page_dump.h"

#include "platform/caption_component.h"
#include "platform/check_box.h"
#include "platform/combo_box.h"
#include "platform/text_box.h"
#include "session/script_error.h"
#include "session/session.h"
#include "subcontrols/numeric_text_box.h"
#include "support/failure.h"

namespace tabulon::cli::session {

namespace {

// What the control shows, by kind; also returns whether it is enabled as the user
// sees it.
bool AddContent(const Component& part, JsonObject& object) {
    if (const auto* numeric = dynamic_cast<const ctlNumericTextBox*>(&part)) {
        object.Str("kind", "numeric").Str("text", numeric->textBox().text());
        try {
            object.Int("value", numeric->Value());
        } catch (const RuntimeFailure&) {
            // The text's number does not fit: the dump shows the text alone.
        }
        object.Int("maxLength", numeric->MaxLength())
            .Int("min", numeric->MinValue())
            .Int("max", numeric->MaxValue());
        return numeric->Enabled();
    }
    if (const auto* text = dynamic_cast<const TextBox*>(&part)) {
        object.Str("kind", "text").Str("text", text->text()).Int("maxLength", text->maxLength());
    } else if (const auto* combo = dynamic_cast<const ComboBox*>(&part)) {
        object.Str("kind", "combo")
            .Str("text", combo->text())
            .Int("listIndex", combo->listIndex())
            .Arr("items", StringArray(combo->items()));
    } else if (const auto* check = dynamic_cast<const CheckBox*>(&part)) {
        object.Str("kind", "check")
            .Str("caption", check->caption())
            .Bool("checked", check->checked());
    } else if (const auto* caption = dynamic_cast<const CaptionComponent*>(&part)) {
        // Frames and labels are one model; the name's prefix tells them apart.
        object.Str("kind", part.name().starts_with("fra") ? "frame" : "label")
            .Str("caption", caption->caption());
    }
    return part.enabled();
}

JsonObject ControlDump(const PageControl& control) {
    const Component& part = *control.component;
    JsonObject object;
    object.Str("name", part.name()).Int("index", control.index).Str("container", control.container);
    const bool enabled = AddContent(part, object);
    return object.Bool("enabled", enabled)
        .Bool("visible", part.visible())
        .Bool("focus", control.focusPart != nullptr && control.focusPart->hasFocus())
        .Int("left", part.left())
        .Int("top", part.top())
        .Int("width", part.width())
        .Int("height", part.height());
}

}  // namespace

PropertyPage& OpenPage(Session& s, std::string_view command) {
    const std::unique_ptr<PropertyPage>& page = s.instances().current().page();
    if (!page) {
        throw ScriptError(std::string(command) +
                          ": no property page is open (use page general|buttons)");
    }
    return *page;
}

JsonObject PageDump(const PropertyPage& page) {
    JsonArray controls;
    for (const PageControl& control : page.controls())
        controls.Obj(ControlDump(control));
    return JsonObject()
        .Str("dump", "page")
        .Str("page", page.name())
        .Str("caption", page.caption())
        .Bool("changed", page.changed())
        .Str("font", page.fontName())
        .Int("width", page.width())
        .Int("height", page.height())
        .Arr("controls", controls);
}

}  // namespace tabulon::cli::session
