// Something whose changes others hear of.
#pragma once

#include <cstdint>
#include <vector>

class Observer;

class ObserverSubject {
public:
    ObserverSubject(const ObserverSubject&) = delete;
    ObserverSubject& operator=(const ObserverSubject&) = delete;
    virtual ~ObserverSubject();

    // Not owned: it lives as long as this subject, or is removed before. Added twice it hears twice.
    void addObserver(Observer& observer);
    void removeObserver(const Observer& observer);
    // Tells every observer, in the order in which they were added.
    void notifyObservers();
    // Different from that of the 65535 subjects made before and after.
    std::uint16_t getSubjectId() const noexcept { return subjectId_; }

protected:
    ObserverSubject();

private:
    std::vector<Observer*> observers_;
    std::uint16_t subjectId_;
};
