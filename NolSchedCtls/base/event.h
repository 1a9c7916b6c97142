// Events: what a view field or the notifier raises and any number of handlers hear.
#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <iterator>
#include <memory>
#include <utility>
#include <vector>

namespace NolSchedCtls::inline v1 {

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
        if (!handlers) handlers = std::make_shared<Handlers>();
        if (handlers->depth == 0) handlers->Sweep();
        const auto place = std::make_shared<Place>(Place{std::move(handler)});
        handlers->list.push_back(place);
        return Connection(std::shared_ptr<bool>(place, &place->isConnected));
    }

    void Raise(Arguments... arguments) const {
        const auto held = handlers;  // a handler may end this event
        if (!held) return;
        const Depth depth(*held);
        const std::size_t count = held->list.size();
        for (std::size_t i = 0; i < count; ++i) {
            const auto place = held->list[i];  // a handler may connect, which moves the list
            if (place->isConnected) place->handler(arguments...);
        }
    }

  private:
    struct Place {
        Handler handler;
        bool isConnected = true;
    };

    struct Handlers {
        // What a handler holds may use this event as it ends, so it ends after the list is whole again.
        void Sweep() {
            const auto isConnected = [](const auto& place) { return place->isConnected; };
            const auto first = std::stable_partition(list.begin(), list.end(), isConnected);
            const std::vector ended(std::make_move_iterator(first), std::make_move_iterator(list.end()));
            list.erase(first, list.end());
        }

        std::vector<std::shared_ptr<Place>> list;
        int depth = 0;
    };

    // Removes disconnected handlers when the outermost raise ends, by return or by a failure.
    struct Depth {
        explicit Depth(Handlers& handlersA) : handlers(handlersA) { ++handlers.depth; }
        ~Depth() {
            if (--handlers.depth == 0) handlers.Sweep();
        }
        Depth(const Depth&) = delete;
        Depth& operator=(const Depth&) = delete;

        Handlers& handlers;
    };

    std::shared_ptr<Handlers> handlers;
};

}  // namespace NolSchedCtls::inline v1
