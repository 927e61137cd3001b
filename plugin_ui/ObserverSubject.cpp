#include "plugin_ui/ObserverSubject.h"

#include "plugin_ui/Observer.h"

#include <algorithm>
#include <atomic>

namespace {

// Several sheets of one process may be open on threads of their own.
std::uint16_t nextSubjectId() noexcept {
    static constinit std::atomic<std::uint32_t> counter = 0;
    return static_cast<std::uint16_t>(++counter);
}

} // namespace

ObserverSubject::ObserverSubject() : subjectId_(nextSubjectId()) {}

ObserverSubject::~ObserverSubject() = default;

void ObserverSubject::addObserver(Observer& observer) { observers_.push_back(&observer); }

void ObserverSubject::removeObserver(const Observer& observer) {
    observers_.erase(std::remove(observers_.begin(), observers_.end(), &observer), observers_.end());
}

// By index: an observer may add another one.
void ObserverSubject::notifyObservers() {
    for (std::size_t i = 0; i < observers_.size(); ++i)
        observers_[i]->handleSubjectUpdate(subjectId_);
}
