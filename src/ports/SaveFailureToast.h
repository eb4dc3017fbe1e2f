#pragma once

#include "model/ToastContent.h"
#include "ports/CaptureSave.h"
#include "ports/Ports.h"

namespace Kovrel {

// What is said of a picture that could not be saved where it should go; a tap shows where it is kept instead.
namespace SaveFailureToast {

ToastContent of(const SaveProblem& problem, const Ports& ports);

} // namespace SaveFailureToast

} // namespace Kovrel
