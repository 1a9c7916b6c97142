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
    // start before. That stops a job, without waiting for it; the end of this object waits, too: compute
    // looks at stop often, shares nothing that changes, uses no service and throws nothing.
    template <class Compute, class Show>
    void Start(Compute compute, Show show) {
        isRunning = true;
        worker.request_stop();
        // The former one ends before this one begins, so that there are never two at work.
        std::jthread next([this, former = std::move(worker), compute = std::move(compute),
                           show = std::move(show)](const std::stop_token& stop) mutable {
            former = {};
            if (stop.stop_requested()) return;
            auto result = std::make_shared<decltype(compute(stop))>(compute(stop));
            if (stop.stop_requested()) return;
            const auto tell = [this, result, show, stop] {
                if (stop.stop_requested()) return;
                isRunning = false;
                show(std::move(*result));
            };
            QMetaObject::invokeMethod(&owner, tell, Qt::QueuedConnection);
        });
        worker = std::move(next);
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
