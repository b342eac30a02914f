#include "platform/services/external_data.h"

#include "platform/utils/CSingletonT.h"

#include <mutex>

namespace Kel {

namespace {

struct ExternalData
{
    std::mutex mutex; ///< guards the directory
    QString directory;
};

ExternalData& externalData()
{
    return utils::CSingletonT<ExternalData>::instance();
}

} // namespace

QString getExternalDataDir()
{
    ExternalData& data = externalData();
    std::lock_guard<std::mutex> lock(data.mutex);
    return data.directory;
}

void setExternalDataDir(const QString& directory)
{
    ExternalData& data = externalData();
    std::lock_guard<std::mutex> lock(data.mutex);
    data.directory = directory;
}

} // namespace Kel
