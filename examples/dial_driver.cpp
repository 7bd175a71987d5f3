#include "dial_driver.h"

#include <dialsim.h>

#include <cstdio>
#include <string>
#include <utility>

namespace {

bool ReadFile(const char* path, std::string& content) {
    std::FILE* file = std::fopen(path, "rb");
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

std::string ContentOf(const char* store) {
    std::string content(dialsim_store(store, nullptr, 0), '\0');
    dialsim_store(store, content.data(), content.size());
    return content;
}

}  // namespace

DialDriver::DialDriver(const char* script_path) {
    if (!ReadFile(script_path, script_)) {
        error_ = std::string("the script ") + script_path + " cannot be read";
    }
    dialsim_start();
    // On Windows the picture is a resource of the program, and the call has no effect.
    std::string picture;
    if (ReadFile(SAMPLE_RESOURCE, picture)) {
        dialsim_add_resource(kSampleModule, 101, "PNG", picture.data(),
                             static_cast<std::uint32_t>(picture.size()));
    }
}

void DialDriver::Start(std::function<void()> done) {
    done_ = std::move(done);
    if (Failed()) {
        done_();
    } else {
        dialsim_play_in_background(script_.c_str(), DIALSIM_REAL_TIME, &DialDriver::OnEnd, this);
    }
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
