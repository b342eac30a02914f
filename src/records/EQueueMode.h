#pragma once

namespace Kel {

/// The view modes of the order queue: levels, styles, frame actions and queue-full in one number space,
/// shared by the mode buttons of the frame, the panel and the host.
enum EQueueMode : int
{
    eQueueFiveLevels = 0,
    eQueueTenLevels = 1,
    eQueueDetailFirst = 2,
    eQueueDetailHorizontal = 3,
    eQueueDetailVertical = 4,
    eQueueDetailList = 5,
    eQueueExtra6 = 6,
    eQueueExtra7 = 7,
    eQueuePanelExtend = 8,
    eQueueFilter = 9,
    eQueuePanelShrink = 10,
    eQueueFull = 11,
    eQueueNotFull = 12,
};

} // namespace Kel
