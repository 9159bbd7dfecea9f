// The test run-time package's component class and the counters through which tests see its unit bodies.
#pragma once

#include "rtl/classes.h"
#include "vcl/graphics.h"

namespace lamps {

class TTestLamp : public rtl::TComponent {
    JEX_CLASS(TTestLamp, rtl::TComponent)
    using TComponent::TComponent;
    int Brightness() const { return FBrightness; }
    void SetBrightness(int v) { FBrightness = v; }
    vcl::TColor LampColor() const { return FColor; }
    void SetLampColor(vcl::TColor v) { FColor = v; }
    std::string Caption() const { return FCaption; }
    void SetCaption(const std::string& v) { FCaption = v; }
    rtl::TNotifyEvent OnSwitch;

private:
    int FBrightness = 0;
    vcl::TColor FColor = vcl::clYellow;
    std::string FCaption;
};

} // namespace lamps

// How often the run-time package's unit started and stopped, and how often the design package's expert ran.
extern "C" int jextestrt_UnitStarts();
extern "C" int jextestrt_UnitStops();
extern "C" void jextestrt_NoteExpertRun();
extern "C" int jextestrt_ExpertRuns();
