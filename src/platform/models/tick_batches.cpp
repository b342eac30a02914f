#include "platform/models/tick_batches.h"

#include "platform/services/RPCEngine.h"

#include <utility>

namespace Kel {

namespace {

template <class Pointer>
void release(Pointer object)
{
    if (object)
        net::RPCEngine::getStrand("data_release")->post([held = std::move(object)]() mutable {
            held.reset();
        });
}

} // namespace

void releaseLater(boost::shared_ptr<void> object)
{
    release(std::move(object));
}

void releaseLater(std::shared_ptr<void> object)
{
    release(std::move(object));
}

} // namespace Kel
