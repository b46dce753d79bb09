#pragma once

namespace varnholt::qt {

/// How strongly a control is drawn beside its twin, which the form names in the widget's dynamic property "twin": of
/// two panels, one is active and the other is dimmed a step.
enum class Emphasis { Plain, Active, Dimmed };

}  // namespace varnholt::qt
