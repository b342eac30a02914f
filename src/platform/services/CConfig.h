#pragma once

#include "records/DepthExport.h"

#include <atomic>

namespace Kel {

/// The environment that the host runs the panels in. Any thread.
class DEPTH_EXPORT CConfig
{
public:
    /// Panels take their concise family of theme keys; initially not.
    bool conciseStyle() const { return m_conciseStyle.load(); }
    void setConciseStyle(bool concise) { m_conciseStyle.store(concise); }

private:
    std::atomic<bool> m_conciseStyle{false};
};

/// The environment of the host; null, which is a normal case, until the host sets one. Any thread.
DEPTH_EXPORT CConfig* getConfig();

/// Sets the environment, which stays the host's; the host sets null before it destroys the object.
DEPTH_EXPORT void setConfig(CConfig* config);

} // namespace Kel
