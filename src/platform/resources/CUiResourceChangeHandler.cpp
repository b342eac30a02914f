#include "platform/resources/CUiResourceChangeHandler.h"

#include "platform/resources/CUiResource.h"
#include "platform/utils/CSingletonT.h"

namespace Zeb {

CUiResourceChangeHandler::CUiResourceChangeHandler()
{
    utils::CSingletonT<CUiResource>::instance().add(this);
}

CUiResourceChangeHandler::~CUiResourceChangeHandler()
{
    utils::CSingletonT<CUiResource>::instance().remove(this);
}

} // namespace Zeb
