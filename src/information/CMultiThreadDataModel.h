#pragma once

#include "records/TSMetaInfo.h"

#include <QHash>
#include <QObject>
#include <QString>

#include <boost/enable_shared_from_this.hpp>
#include <boost/thread/mutex.hpp>

namespace Kel {

class CInformationWidget;

/// Holds what an information panel would subscribe to. Nothing is asked for from here: the host attaches the
/// feed of notices. Any thread.
class CMultiThreadDataModel : public QObject, public boost::enable_shared_from_this<CMultiThreadDataModel>
{
    Q_OBJECT

public:
    explicit CMultiThreadDataModel(CInformationWidget* widget);

    /// Makes the request for an instrument's information ready under its key, market and code joined. An
    /// unknown code is ignored.
    void setStock(const QString& code);

    /// Drops the requests of a running subscription; there is none while its number is -1.
    void clear();

    /// The request under a key; empty for an unknown one.
    quoter::TSMetaInfo request(const QString& key) const;

    CInformationWidget* widget() const;

    /// -1 for none.
    int subscription() const;
    void setSubscription(int number);

private:
    mutable boost::mutex m_mutex; ///< guards all below
    CInformationWidget* m_widget = nullptr;
    int m_subscription = -1;
    QHash<QString, quoter::TSMetaInfo> m_requests;
};

} // namespace Kel
