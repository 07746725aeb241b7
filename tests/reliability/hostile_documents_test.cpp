// Documents that try to make the control read local files, fetch URLs, expand entities
// without bound, nest or grow without limit, or trip over invalid UTF-8, bad custom
// units and picture paths that are not files (tests/data/hostile/README.md).
// Each must be refused or loaded with the control's own clear message, never read,
// fetched or expanded, and never hang.
#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <sys/inotify.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <vector>

#include "document/validate_document_text.h"
#include "reliability/hostile_harness.h"
#include "support/descriptor.h"
#include "support/text.h"
#include "support/utf8.h"

namespace tabulon::testing {
namespace {

constexpr std::string_view kSecret = "TOP-SECRET-CONTENT-7f3a";

bool ValidUtf8(std::string_view text) {
    for (std::size_t pos = 0; pos < text.size();) {
        if (DecodeUtf8(text, pos) == kInvalidUtf8) return false;
    }
    return true;
}

// plain.xml after a document type declaration (doctype, with its line end), with the
// first node named name.
std::string Variant(const std::string& doctype, const std::string& name) {
    return doctype + Replaced(Hostile("plain.xml"), "Plant North", name);
}

// The part of a validation message after its line break: the source excerpt.
std::string SourceExcerpt(const std::string& message) {
    const std::size_t at = message.find("\r\n");
    return at == std::string::npos ? std::string() : message.substr(at + 2);
}

using HostileDocument = HostileHarness;

TEST_F(HostileDocument, ExternalEntitiesAreNeverReadOrFetched) {
    const std::filesystem::path secret = TempFile("secret.txt", std::string(kSecret));
    const Descriptor watch(inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
    ASSERT_GE(watch.get(), 0);
    ASSERT_GE(inotify_add_watch(watch.get(), secret.c_str(), IN_OPEN | IN_ACCESS), 0);
    const Descriptor listener(socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    ASSERT_GE(listener.get(), 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    auto* generic = reinterpret_cast<sockaddr*>(&address);
    ASSERT_EQ(bind(listener.get(), generic, length), 0);
    ASSERT_EQ(listen(listener.get(), 4), 0);
    ASSERT_EQ(getsockname(listener.get(), generic, &length), 0);
    const std::string url = "http://127.0.0.1:" + std::to_string(ntohs(address.sin_port));
    const std::string doctypes[] = {
        "<!DOCTYPE xml [<!ENTITY e SYSTEM \"file://" + secret.string() + "\">]>",
        "<!DOCTYPE xml SYSTEM \"" + url + "/types.dtd\" [<!ENTITY e SYSTEM \"" + url +
            "/value\">]>",
    };
    for (const std::string& doctype : doctypes) {
        for (const bool fromFile : {false, true}) {
            EXPECT_FALSE(LoadEither(Variant(doctype + "\n", "Plant &e;"), fromFile));
            const std::string message = OnlyCriticalMessage();
            EXPECT_EQ(SourceExcerpt(message), doctype) << message;
            EXPECT_EQ(message.find(kSecret), std::string::npos);
        }
    }
    EXPECT_EQ(control().XML().find(kSecret), std::string::npos);
    char events[4096];
    EXPECT_EQ(read(watch.get(), events, sizeof events), -1) << "the secret file was opened";
    EXPECT_EQ(errno, EAGAIN);
    EXPECT_EQ(accept(listener.get(), nullptr, nullptr), -1) << "something connected";
    EXPECT_EQ(errno, EAGAIN);
}

TEST_F(HostileDocument, BillionLaughsAreRefusedUnexpanded) {
    std::string entities = "<!DOCTYPE xml [\n  <!ENTITY lol0 \"lol\">\n";
    for (int level = 1; level <= 9; ++level) {
        std::string ten;
        for (int i = 0; i < 10; ++i)
            ten += "&lol" + std::to_string(level - 1) + ";";
        entities += "  <!ENTITY lol" + std::to_string(level) + " \"" + ten + "\">\n";
    }
    const std::string text = Variant(entities + "]>\n", "Plant &lol9;");
    EXPECT_FALSE(LoadText(text));
    const std::string message = OnlyCriticalMessage();
    EXPECT_TRUE(SourceExcerpt(message).starts_with("<!DOCTYPE xml [")) << message;
    EXPECT_LT(control().XML().size(), 2 * text.size());
}

// Ten thousand levels of nesting, and a ten-megabyte attribute.
TEST_F(HostileDocument, DeepOrHugeDocumentsAreRefusedWithAShortExcerpt) {
    std::string nested;
    for (int i = 0; i < 10000; ++i) {
        nested += "<Cnode Name=\"n\" KeyValue=\"K" + std::to_string(i) +
                  "\" GridHeaderKey=\"H\" Filter=\"0\">";
    }
    for (int i = 0; i < 10000; ++i)
        nested += "</Cnode>";
    const std::string plain = Hostile("plain.xml");
    const std::size_t at = plain.find("</Pnode>");
    const std::pair<std::string, std::string> cases[] = {
        {plain.substr(0, at) + nested + plain.substr(at), "<Cnode Name=\"n\""},
        {Variant("", std::string(10u << 20, 'A')), "<Pnode Name=\"AAAA"},
    };
    for (const auto& [text, start] : cases) {
        for (const bool fromFile : {false, true}) {
            EXPECT_FALSE(LoadEither(text, fromFile));
            const std::string excerpt = SourceExcerpt(OnlyCriticalMessage());
            EXPECT_TRUE(excerpt.starts_with(start)) << excerpt.substr(0, 100);
            EXPECT_TRUE(excerpt.ends_with("..."));
            EXPECT_EQ(CountUtf8(excerpt), kMaxSourceCharacters + 3);
        }
    }
}

TEST_F(HostileDocument, InvalidUtf8GivesAMessageThatCanBeShown) {
    const std::string text = Variant("", "Plant \xFF\xFENorth \xC3");
    EXPECT_FALSE(LoadText(text));
    const std::string fromText = OnlyCriticalMessage();
    EXPECT_FALSE(LoadEither(text, true));
    EXPECT_EQ(OnlyCriticalMessage(), fromText);
    EXPECT_TRUE(ValidUtf8(fromText)) << fromText;
    EXPECT_NE(SourceExcerpt(fromText).find("Plant \uFFFD"), std::string::npos) << fromText;
}

TEST_F(HostileDocument, CustomUnitWithBadFactorIsRefusedWhereItIsNeeded) {
    const RecordedMessage unitNum = Information("Invalid UnitNum units defined in XML.");
    const RecordedMessage unitDrop = Information("Invalid UnitDrop units defined in XML.");
    const RecordedMessage display = Information(
        "Metric conversion is not possible because invalid UnitDrop units defined in XML.");
    for (const std::string factor : {"0", "-2.5", "abc"}) {
        SCOPED_TRACE("factor " + factor);
        NewControl();
        ClearRecords();
        ASSERT_TRUE(
            LoadText(Replaced(Replaced(Hostile("custom_unit_bad_factor.xml"), "@SYSTEM@", "METRIC"),
                              "@FACTOR@", factor)));
        // The display pass needs the unit in the first row and stops there.
        ExpectMessages({unitNum});
        form().treTreeView.userClickNode(2);
        ExpectMessages({unitNum, display});
        form().treTreeView.userClickNode(1);
        ClearRecords();

        FlexGrid& grid = form().msgGridView;
        // From cell (1, 1), where the load left the grid, to (2, 1) and back.
        for (const auto& [row, message] : {std::pair{2, unitDrop}, std::pair{1, unitNum}}) {
            grid.userMouseMove(row, 1);
            grid.userClick(row, 1);
            // Entering the cell and the click on it each try to open the editor.
            ExpectMessages({message, message});
            EXPECT_FALSE(form().anyEditorVisible());
            ClearRecords();
        }
        std::string everything = control().XML();
        for (int r = 0; r < grid.rows(); ++r)
            everything += grid.textMatrix(r, 1);
        const std::string lower = ToLowerAscii(everything);
        EXPECT_EQ(lower.find("inf"), std::string::npos) << everything;
        EXPECT_EQ(lower.find("nan"), std::string::npos) << everything;
    }
}

// A blocking read of a pipe would never return: neither load may try one.
TEST_F(HostileDocument, PathThatIsAFolderOrAPipeIsAMissingPictureOrDocument) {
    const std::string folder = TempDir().string();
    const std::string pipe = (TempDir() / "picture.png").string();
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const std::string text =
        Replaced(Replaced(Hostile("plain.xml"), "KeyValue=\"PLANT\"",
                          "KeyValue=\"PLANT\" ImageName=\"" + folder + "\""),
                 "KeyValue=\"CAFE\"", "KeyValue=\"CAFE\" ImageName=\"" + pipe + "\"");
    ASSERT_TRUE(LoadText(text));
    ExpectMessages({Information("There are following images not found in defined location:\r\n" +
                                folder + "\r\n" + pipe + "\r\n")});
    EXPECT_EQ(form().treTreeView.node(1).image, 0);
    EXPECT_EQ(form().treTreeView.node(2).image, 0);
    for (const std::string& path : {folder, pipe}) {
        ClearRecords();
        EXPECT_FALSE(LoadPath(path));
        ExpectMessages({Critical("XML file not found")});
    }
}

}  // namespace
}  // namespace tabulon::testing
