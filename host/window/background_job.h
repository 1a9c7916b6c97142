// Work beside the windows, of which only the latest counts.
#pragma once

#include <QObject>
#include <memory>
#include <stop_token>
#include <thread>
#include <utility>

namespace NolSchedCtls {

class BackgroundJob {
  public:
    // Calls compute(stop) on a thread of its own, then show(result) on the caller's, unless there was another
    // start before. That and the end of this object stop a job, and wait for it: compute looks at stop often,
    // shares nothing that changes, uses no service and throws nothing.
    template <class Compute, class Show>
    void Start(Compute compute, Show show) {
        isRunning = true;
        worker = std::jthread(
            [this, compute = std::move(compute), show = std::move(show)](const std::stop_token& stop) {
                auto result = std::make_shared<decltype(compute(stop))>(compute(stop));
                if (stop.stop_requested()) return;
                const auto tell = [this, result, show, stop] {
                    if (stop.stop_requested()) return;
                    isRunning = false;
                    show(std::move(*result));
                };
                QMetaObject::invokeMethod(&owner, tell, Qt::QueuedConnection);
            });
    }

    // Nothing of a start before this is shown. Waits for it.
    void Stop() {
        worker = {};
        isRunning = false;
    }

    // Until the result of the latest start is shown.
    bool IsRunning() const { return isRunning; }

  private:
    bool isRunning = false;
    QObject owner;  // what is still queued for it goes with it
    std::jthread worker;
};

}  // namespace NolSchedCtls
