// ControlHarness: a fixture hosting one Generic_SP_Control as a host program does
// (new instance, first-time initialisation, first showing), recording every message
// box and host event, loading documents from text, tests/data/ or temporary files.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "common/files.h"
#include "control/control_access.h"
#include "control/generic_sp_control.h"
#include "platform/property_bag.h"
#include "testing/recording_host.h"
#include "testing/recording_sink.h"

namespace tabulon::testing {

inline RecordedMessage Information(std::string text) {
    return {MessageIcon::Information, std::move(text)};
}
inline RecordedMessage Critical(std::string text) {
    return {MessageIcon::Critical, std::move(text)};
}
inline RecordedMessage Plain(std::string text) {
    return {MessageIcon::Plain, std::move(text)};
}

class ControlHarness : public ::testing::Test {
protected:
    // A new instance with no saved settings, initialised and shown.
    ControlHarness() { NewControl(); }
    ~ControlHarness() override { control_.reset(); }

    Generic_SP_Control& control() { return *control_; }
    Form& form() { return FormOf(*control_); }
    ControlCore& core() { return CoreOf(*control_); }

    // Replaces the control by a brand-new one (first-time initialisation, then shown).
    void NewControl() {
        control_.reset();
        control_ = std::make_unique<Generic_SP_Control>(sink, host);
        control_->InitProperties();
        control_->Show();
    }
    // Replaces the control by one restored from bag, not shown yet (Show() places
    // the buttons and lays the control out).
    void RestoreControl(PropertyBag& bag) {
        control_.reset();
        control_ = std::make_unique<Generic_SP_Control>(sink, host);
        control_->ReadProperties(bag);
    }

    bool LoadText(const std::string& xml) { return control_->LoadXML(xml); }
    bool LoadPath(const std::filesystem::path& path) { return control_->Load(path.string()); }
    // Load of a file under tests/data/ (the file itself; OK may rewrite it, so tests
    // that press OK load a TempCopy instead).
    bool LoadDataFile(const std::string& name) { return LoadPath(DataFile(name)); }
    bool LoadDataText(const std::string& name) { return LoadText(ReadFileBytes(DataFile(name))); }

    // A folder of this test's own, removed with the fixture.
    const std::filesystem::path& TempDir() {
        if (!tempDir_) tempDir_.emplace();
        return tempDir_->path();
    }
    std::filesystem::path TempFile(const std::string& name, const std::string& text) {
        TempDir();
        return tempDir_->write(name, text);
    }
    std::filesystem::path TempCopy(const std::string& name) {
        return TempFile(name, ReadFileBytes(DataFile(name)));
    }

    void ExpectMessages(const std::vector<RecordedMessage>& expected) {
        EXPECT_EQ(sink.messages(), expected);
    }
    void ClearRecords() {
        sink.clear();
        host.clear();
    }

    RecordingSink sink;
    RecordingHost host;

private:
    std::unique_ptr<Generic_SP_Control> control_;
    std::optional<testing::TempDir> tempDir_;
};

}  // namespace tabulon::testing

namespace tabulon {
// Readable failures for recorded messages and events.
inline void PrintTo(const RecordedMessage& message, std::ostream* out) {
    *out << MessageIconName(message.icon) << ": \"" << message.text << "\"";
}
inline void PrintTo(const RecordedEvent& event, std::ostream* out) {
    *out << HostEventName(event.kind) << "(\"" << event.text << "\")";
}
}  // namespace tabulon
