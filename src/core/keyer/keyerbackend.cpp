#include "keyer/keyerbackend.h"

namespace hfc {

KeyerBackend::~KeyerBackend() = default;

void KeyerBackend::setErrorHandler(std::function<void(const QString&)> handler) {
    m_onError = std::move(handler);
}

void KeyerBackend::reportError(const QString& message) const {
    if (m_onError) m_onError(message);
}

} // namespace hfc
