#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <cstddef>
#include <vector>

namespace host {

/// Watches how long the event loop of the GUI thread keeps a person waiting: a timer that is due every
/// millisecond, and what it comes too late by. GUI thread.
class StallMeter : public QObject
{
    Q_OBJECT

public:
    explicit StallMeter(QObject* parent = nullptr);

    void start();
    void stop();

    struct Result
    {
        double worstMs = 0;
        double p99Ms = 0; ///< of the turns of the loop
        double medianMs = 0;
        std::size_t turns = 0;
    };
    Result result() const;

private:
    void turn();

    QTimer m_timer;
    QElapsedTimer m_clock;
    std::vector<double> m_waits; ///< milliseconds
};

} // namespace host
