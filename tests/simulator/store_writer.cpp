// Writes to the simulator's stores in a separate process and prints a byte after every change:
//
//   store_writer FOLDER setting|credential NAME COUNT    NAME0, NAME1, ... with the number as the value
//   store_writer FOLDER setting|credential NAME forever  NAME only, with changing texts
#include <cstdio>
#include <cstdlib>
#include <string>

#include "changing_text.h"
#include "simulator/dialsim.h"

namespace {

bool Put(const std::string& kind, const std::string& name, const std::string& text) {
    const bool put = kind == "setting" ? dialsim_put_setting("local", name.c_str(), "String", text.c_str())
                                       : dialsim_put_credential("resource", name.c_str(), text.c_str());
    std::putchar('.');
    std::fflush(stdout);
    return put;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 5) {
        return EXIT_FAILURE;
    }
    dialsim_set_stores(argv[1]);
    const std::string kind = argv[2];
    const std::string name = argv[3];
    bool well = true;
    if (std::string(argv[4]) == "forever") {
        for (unsigned turn = 0; well; ++turn) {
            well = Put(kind, name, ChangingText(turn));
        }
    }
    for (int i = 0; i < std::atoi(argv[4]); ++i) {
        well = Put(kind, name + std::to_string(i), std::to_string(i)) && well;
    }
    return well ? EXIT_SUCCESS : EXIT_FAILURE;
}
