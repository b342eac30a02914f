#pragma once

#include "records/DepthExport.h"

#include <QObject>

#include <atomic>

namespace Kel {

/// Settings of the user that panels follow while they run. The values may be read on any thread; the setters
/// belong to the thread that owns the object, which the signal is sent on.
class DEPTH_EXPORT CUserConfig : public QObject
{
    Q_OBJECT

public:
    explicit CUserConfig(QObject* parent = nullptr);

    /// Period of the panels' timers, seconds; initially 0.5.
    double refreshInterval() const { return m_refreshInterval.load(); }

    /// Sets the period and emits `sigRefreshTimer` with it. A value that is not finite, below 0.001 s, or too
    /// long for an int of milliseconds is refused: false, nothing changes, nothing is emitted.
    bool setRefreshInterval(double seconds);

    /// Whether the thousand-level ladder shows its distribution overlay; initially not.
    bool showDistribution() const { return m_showDistribution.load(); }
    void setShowDistribution(bool show) { m_showDistribution.store(show); }

Q_SIGNALS:
    /// The timers' new period, milliseconds: the seconds times 1000, truncated.
    void sigRefreshTimer(int ms);

private:
    std::atomic<double> m_refreshInterval{0.5};
    std::atomic<bool> m_showDistribution{false};
};

/// The user configuration of the host; null, which is a normal case, until the host sets one. Any thread.
DEPTH_EXPORT CUserConfig* getUserConfig();

/// Sets the user configuration, which stays the host's; the host sets null before it destroys the object.
DEPTH_EXPORT void setUserConfig(CUserConfig* config);

} // namespace Kel
