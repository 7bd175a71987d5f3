#include "simulator/desktop/dial_face.h"

#include <numbers>

namespace dialsim {

namespace {

constexpr double kTopRadius = 62;

constexpr std::uint32_t kBackground = 0xF6F8FA;
constexpr std::uint32_t kFrame = 0xB4BDC7;
constexpr std::uint32_t kGrip = 0xAFB8C1;
constexpr std::uint32_t kTick = 0x8B97A4;
constexpr std::uint32_t kMark = 0x4C9AFF;
constexpr std::uint32_t kFeedback = 0xFF9A3C;
constexpr std::uint32_t kText = 0x424A53;

void DrawPanel(const Surface& surface) {
    constexpr Point corners[] = {
        {0.5, 0.5}, {kDialWidth - 0.5, 0.5}, {kDialWidth - 0.5, kDialHeight - 0.5}, {0.5, kDialHeight - 0.5}};
    surface.Clear(kBackground);
    for (int i = 0; i < 4; ++i) {
        surface.Line(corners[i], corners[(i + 1) % 4], 1, {kFrame});
    }
    for (int i = -2; i <= 2; ++i) {
        surface.Disc({kKnobMiddle.x + 7 * i, 11}, 1.5, {kGrip});
    }
}

void DrawBody(const Surface& surface, bool feedback) {
    surface.Glow({kKnobMiddle.x, kKnobMiddle.y + 4}, kKnobRadius - 4, 14, {0, 0.35});
    if (feedback) {
        surface.Glow(kKnobMiddle, kKnobRadius, 14, {kFeedback});
    }
    surface.GradientDisc(kKnobMiddle, kKnobRadius, 0x5B6570, 0x1F242A);
    surface.GradientDisc(kKnobMiddle, kKnobRadius - 2, 0x363D46, 0x262B32);
    if (feedback) {
        surface.Circle(kKnobMiddle, kKnobRadius - 2, 4, {kFeedback});
    }
}

// The marks turn with the dial; one of them is the pointer.
void DrawMarks(const Surface& surface, double degrees) {
    const double turned = degrees / 180 * std::numbers::pi - std::numbers::pi / 2;
    for (int i = 1; i < 36; ++i) {
        const double angle = turned + i * std::numbers::pi / 18;
        surface.Line(PointOnCircle(kKnobMiddle, kKnobRadius - 15, angle),
                     PointOnCircle(kKnobMiddle, kKnobRadius - 9, angle), 1.5, {kTick});
    }
    surface.Line(PointOnCircle(kKnobMiddle, kKnobRadius - 20, turned),
                 PointOnCircle(kKnobMiddle, kKnobRadius - 9, turned), 5, {kMark});
}

// The pressed top is smaller and lit from below, with a bright edge.
void DrawTop(const Surface& surface, bool pressed) {
    surface.Disc(kKnobMiddle, kTopRadius + 2, {0x181C21});
    if (pressed) {
        surface.GradientDisc(kKnobMiddle, kTopRadius - 3, 0x23282F, 0x3E4651);
        surface.Circle(kKnobMiddle, kTopRadius, 4, {kMark});
    } else {
        surface.GradientDisc(kKnobMiddle, kTopRadius, 0x7A8591, 0x2B3138);
        surface.GradientDisc(kKnobMiddle, kTopRadius - 1.5, 0x5D6772, 0x2F353D);
    }
}

void DrawHelp(const Surface& surface) {
    constexpr const wchar_t* kLines[] = {L"Turn: drag, wheel or arrow keys", L"Press: click or space",
                                         L"Menu: hold or M"};
    double y = 222;
    for (const wchar_t* line : kLines) {
        surface.Text({kKnobMiddle.x, y}, kDialWidth - 16, 12, FW_NORMAL, kText, line);
        y += 20;
    }
}

}  // namespace

void DrawDial(const Surface& surface, const DialState& state, bool feedback) {
    DrawPanel(surface);
    DrawBody(surface, feedback);
    DrawMarks(surface, state.angle);
    DrawTop(surface, state.button_down);
    DrawHelp(surface);
}

}  // namespace dialsim
