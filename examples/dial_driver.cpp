#include "dial_driver.h"

#include <dialsim.h>

#include <cstdio>
#include <string>
#include <utility>

namespace {

bool ReadFile(const Text& path, std::string& content) {
    std::FILE* file = OpenToRead(path);
    if (file == nullptr) {
        return false;
    }
    char part[4096];
    while (const std::size_t length = std::fread(part, 1, sizeof part, file)) {
        content.append(part, length);
    }
    std::fclose(file);
    return true;
}

#ifdef _WIN32
// The picture is a resource of the program.
void AddPicture() {}
#else
void AddPicture() {
    std::string picture;
    if (ReadFile(SAMPLE_RESOURCE, picture)) {
        dialsim_add_resource(kSampleModule, 101, "PNG", picture.data(),
                             static_cast<std::uint32_t>(picture.size()));
    }
}
#endif

std::string ContentOf(const char* store) {
    std::string content(dialsim_store(store, nullptr, 0), '\0');
    dialsim_store(store, content.data(), content.size());
    return content;
}

}  // namespace

DialDriver::DialDriver(const Text& script_path) {
    if (!dialsim_start()) {
        error_ = "the dial cannot be simulated";
    } else if (!ReadFile(script_path, script_)) {
        error_ = "the script " + ToUtf8(script_path) + " cannot be read";
    }
    AddPicture();
}

void DialDriver::Start(std::function<void()> done) {
    done_ = std::move(done);
    dialsim_play_in_background(script_.c_str(), DIALSIM_REAL_TIME, &DialDriver::OnEnd, this);
}

void DialDriver::Wait() { dialsim_wait_for_scripts(); }

std::string DialDriver::StoreOf(const char* key) {
    constexpr std::pair<const char*, const char*> kStores[] = {{"roaming", "from the roaming settings"},
                                                               {"vault", "from the vault"},
                                                               {"local", "from the local settings"}};
    const std::string quoted = '"' + std::string(key) + "\" ";
    for (const auto& [store, place] : kStores) {
        if (ContentOf(store).find(quoted) != std::string::npos) {
            return place;
        }
    }
    return "kept nowhere";
}

void DialDriver::OnEnd(void* context, const char* error) {
    auto* driver = static_cast<DialDriver*>(context);
    if (error != nullptr) {
        driver->error_ = error;
    }
    driver->done_();
}
