#include "ports/SaveFailureToast.h"

#include "ports/CaptureDelivery.h"

#include <QCoreApplication>

namespace Kovrel {

namespace {

constexpr double dwell = 6; // seconds

} // namespace

ToastContent SaveFailureToast::of(const SaveProblem& problem, const Ports& ports)
{
    ToastContent toast{.message = QCoreApplication::translate("SaveFailureToast", "The capture could not be saved"),
                       .subtitle = problem.message,
                       .icon = "exclamationmark.triangle",
                       .dwell = dwell};
    if (problem.keptAs)
        toast.onTap = [&ports, path = *problem.keptAs] { ports.delivery.tell(&CaptureDelivery::reveal, path); };
    return toast;
}

} // namespace Kovrel
