// A host whose dial is optional: status 0 when its window has a dial and a setting is stored, 3 when not, 5
// without brindle.dll.
#include <brindle.hpp>

int main() {
    brindle_dial::Session session(brindle_dial::loaded_library());
    if (session.start_result() == brindle_dial::StartResult::NoLibrary) {
        return 5;
    }
    const brindle_dial::Dial dial = session.listen(42, nullptr, nullptr);
    const brindle_dial::Settings settings = session.settings(L"Optional host");
    settings.set_text(L"Optional host/brush", L"round");
    const bool stored = settings.text(L"Optional host/brush") == L"round";
    return stored && dial.is_listening() && dial.is_present() ? 0 : 3;
}
