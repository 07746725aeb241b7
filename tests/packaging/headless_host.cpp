// A host without Qt, built by the packaging test with nothing but the flags of the
// installed tabulon.pc and the installed public headers: it loads a document into the
// headless control and prints the widths of the columns it shows, or the control's
// messages and exit status 1.
#include <iostream>
#include <string_view>

#include "control/generic_sp_control.h"
#include "support/message_sink.h"
#include "view/host_events.h"

namespace {

class PrintingSink : public tabulon::MessageSink {
public:
    void Show(tabulon::MessageIcon icon, std::string_view text) override {
        std::cerr << tabulon::MessageIconName(icon) << ": " << text << '\n';
    }
};

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: headless_host DOCUMENT\n";
        return 2;
    }
    PrintingSink sink;
    tabulon::HostEvents host;
    tabulon::Generic_SP_Control control(sink, host);
    control.InitProperties();
    control.Show();
    const bool loaded = control.Load(argv[1]);
    if (loaded) std::cout << "columns " << control.DisplayColWidth() << '\n';
    control.Terminate();
    return loaded ? 0 : 1;
}
