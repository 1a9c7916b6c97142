// Events: what a view field or the notifier raises and any number of handlers hear.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "NolSchedCtls/base/error.h"

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

// What an event has whatever it hands to its handlers: this code is there once, not once for each kind.
struct EventPlace {
    bool isConnected = true;
};

struct EventPlaces {
    // What a handler holds may use this event as it ends, so it ends after the list is whole again.
    void Sweep() {
        std::vector<std::shared_ptr<EventPlace>> ended;
        auto kept = list.begin();
        for (auto& place : list) {
            if (place->isConnected)
                std::swap(*kept++, place);
            else
                ended.push_back(place);
        }
        list.erase(kept, list.end());
    }

    static Connection Join(std::shared_ptr<EventPlaces>& places, std::shared_ptr<EventPlace> place) {
        if (!places) places = std::make_shared<EventPlaces>();
        if (places->depth == 0) places->Sweep();
        bool& isConnected = place->isConnected;
        places->list.push_back(place);
        return Connection(std::shared_ptr<bool>(std::move(place), &isConnected));
    }

    // Removes disconnected handlers when the outermost raise ends, by return or by a failure.
    struct Depth {
        explicit Depth(EventPlaces& placesA) : places(placesA) { ++places.depth; }
        ~Depth() {
            if (--places.depth == 0) places.Sweep();
        }
        Depth(const Depth&) = delete;
        Depth& operator=(const Depth&) = delete;

        EventPlaces& places;
    };

    std::vector<std::shared_ptr<EventPlace>> list;
    int depth = 0;
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

    // Throws NolSchedError for an empty handler.
    Connection Connect(Handler handler) {
        if (!handler) throw NolSchedError("An event takes no empty handler.");
        auto place = std::make_shared<Place>();
        place->handler = std::move(handler);
        return EventPlaces::Join(places, std::move(place));
    }

    void Raise(Arguments... arguments) const {
        if (!places) return;
        const auto held = places;  // a handler may end this event
        const EventPlaces::Depth depth(*held);
        const std::size_t count = held->list.size();
        for (std::size_t i = 0; i < count; ++i) {
            const auto place = held->list[i];  // a handler may connect, which moves the list
            if (place->isConnected) static_cast<Place&>(*place).handler(arguments...);
        }
    }

  private:
    struct Place : EventPlace {
        Handler handler;
    };

    std::shared_ptr<EventPlaces> places;
};

}  // namespace NolSchedCtls::inline v1
