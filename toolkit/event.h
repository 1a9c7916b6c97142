// Events: what a view field or the notifier raises and any number of handlers hear.
#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace NolSchedCtls {

// A handler's place at an event. Copies stand for the same handler; may outlive the event.
class Connection {
  public:
    Connection() = default;
    explicit Connection(std::weak_ptr<bool> isConnectedA) : isConnected(std::move(isConnectedA)) {}

    // From now on the handler is not called, not even by a raise that is under way.
    void Disconnect() {
        if (const auto flag = isConnected.lock()) *flag = false;
        isConnected.reset();
    }

  private:
    std::weak_ptr<bool> isConnected;
};

// Disconnects at its end, or when another connection takes its place.
class ScopedConnection {
  public:
    ScopedConnection() = default;
    ScopedConnection(Connection connectionA) : connection(std::move(connectionA)) {}
    ScopedConnection(ScopedConnection&& other) noexcept : connection(std::exchange(other.connection, {})) {}
    ScopedConnection& operator=(ScopedConnection&& other) noexcept {
        connection.Disconnect();
        connection = std::exchange(other.connection, {});
        return *this;
    }
    ~ScopedConnection() { connection.Disconnect(); }

  private:
    Connection connection;
};

// Handlers are called in the order in which they connected, before Raise returns. A handler may connect (the
// new handler hears the next raise), disconnect any handler, raise again, or end the event itself.
template <class... Arguments>
class Event {
  public:
    using Handler = std::function<void(Arguments...)>;

    Event() = default;
    Event(const Event&) = delete;
    Event& operator=(const Event&) = delete;

    Connection Connect(Handler handler) {
        if (!slots) slots = std::make_shared<Slots>();
        if (slots->depth == 0) slots->Sweep();
        auto isConnected = std::make_shared<bool>(true);
        slots->list.push_back(std::make_shared<Slot>(Slot{isConnected, std::move(handler)}));
        return Connection(isConnected);
    }

    void Raise(Arguments... arguments) const {
        const auto held = slots;  // a handler may end this event
        if (!held) return;
        const Depth depth(*held);
        const std::size_t count = held->list.size();
        for (std::size_t i = 0; i < count; ++i) {
            const auto slot = held->list[i];  // a handler may connect, which moves the list
            if (*slot->isConnected) slot->handler(arguments...);
        }
    }

  private:
    struct Slot {
        std::shared_ptr<bool> isConnected;
        Handler handler;
    };

    struct Slots {
        void Sweep() {
            std::erase_if(list, [](const auto& slot) { return !*slot->isConnected; });
        }

        std::vector<std::shared_ptr<Slot>> list;
        int depth = 0;
    };

    // Removes disconnected handlers when the outermost raise ends, by return or by a failure.
    struct Depth {
        explicit Depth(Slots& slotsA) : slots(slotsA) { ++slots.depth; }
        ~Depth() {
            if (--slots.depth == 0) slots.Sweep();
        }
        Depth(const Depth&) = delete;
        Depth& operator=(const Depth&) = delete;

        Slots& slots;
    };

    std::shared_ptr<Slots> slots;
};

}  // namespace NolSchedCtls
