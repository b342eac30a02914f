#include "platform/models/tick_batches.h"

#include "platform/services/RPCEngine.h"

#include <utility>

namespace Kel {

void releaseLater(boost::shared_ptr<void> object)
{
    if (object)
        net::RPCEngine::getStrand("data_release")->post([held = std::move(object)]() mutable {
            held.reset();
        });
}

} // namespace Kel
