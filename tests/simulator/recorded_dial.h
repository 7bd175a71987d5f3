// A recording of the dial in a temporary file.
#pragma once

#include <string>

#include "support/simulator_fixture.h"
#include "support/stores_folder.h"

namespace brindle {

class RecordedDial : public SimulatorApartmentTest {
protected:
    void TearDown() override {
        dialsim_record(nullptr);
        folder_.Remove("session.dial");
        SimulatorApartmentTest::TearDown();
    }

    std::string Path() const { return folder_.PathOf("session.dial"); }
    void Record() const { ASSERT_TRUE(dialsim_record(Path().c_str())); }
    // The current content of the file.
    std::string Recording() const { return folder_.Read("session.dial").value_or("no file"); }

    static void Play(const std::string& script) {
        char error[200] = "";
        EXPECT_TRUE(dialsim_play(script.c_str(), 0, error, sizeof error)) << error;
    }

private:
    const StoresFolder folder_;
};

}  // namespace brindle
