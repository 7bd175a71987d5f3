#include "dial_driver.h"

#include <cstdio>
#include <utility>

#include "simulator/dialsim.h"

DialDriver::DialDriver(const char* script_path) {
    std::FILE* file = std::fopen(script_path, "r");
    if (file == nullptr) {
        error_ = std::string("the script ") + script_path + " cannot be read";
        return;
    }
    char part[4096];
    while (const std::size_t length = std::fread(part, 1, sizeof part, file)) {
        script_.append(part, length);
    }
    std::fclose(file);
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

void DialDriver::OnEnd(void* context, const char* error) {
    auto* driver = static_cast<DialDriver*>(context);
    if (error != nullptr) {
        driver->error_ = error;
    }
    driver->done_();
}
