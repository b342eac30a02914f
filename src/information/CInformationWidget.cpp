#include "information/CInformationWidget.h"

#include "information/CMultiThreadDataModel.h"
#include "information/LocalTableModel.h"
#include "information/ReaderThreads.h"
#include "platform/services/CStockManager.h"
#include "platform/toolkit/CComboBox.h"
#include "platform/toolkit/CStandardTable.h"
#include "platform/toolkit/CWidgetList.h"
#include "platform/utils/CSingletonT.h"
#include "platform/utils/market_predicates.h"

#include <QTimer>
#include <QWheelEvent>

#include <boost/make_shared.hpp>
#include <boost/thread/lock_guard.hpp>

namespace Kel {

namespace {

constexpr int kRequestDelay = 5000; // ms from a change of instrument to the reading of its files

constexpr int kEventSwallowed = 227;
constexpr int kSwallowedFirst = 3;
constexpr int kMostSwallowedSecond = 3;
constexpr int kEventChosen = 70; // in the chooser of files, which is nobody else's
constexpr int kEventPage = 302;
constexpr int kPageFirst = 4;
constexpr int kAnnouncementsPage = 1;
constexpr int kReportsPage = 2;
constexpr int kLocalPage = 3;

using Lock = boost::lock_guard<boost::mutex>;

/// Counts a request and starts the thread that reads for it.
void startReading(const std::shared_ptr<LocalInformation>& local, const QString& code)
{
    ++local->requestCount;
    ReaderThreads::instance().start([local, code] { local->read(code); });
}

} // namespace

CInformationWidget::CInformationWidget(QWidget* parent)
    : Zeb::CBaseWidget(QStringLiteral("basewidget_CInformationWidget"), parent),
      m_local(std::make_shared<LocalInformation>())
{
    qRegisterMetaType<QList<boost::shared_ptr<quoter::Notice>>>();
    ReaderThreads::instance(); // made now: a request must not fail for want of memory
    creatUi();
    m_dataModel = boost::make_shared<CMultiThreadDataModel>(this);
    m_requestTimer = new QTimer(this);
    m_requestTimer->setInterval(kRequestDelay);
    connect(m_requestTimer, &QTimer::timeout, this, &CInformationWidget::slotRequestTimeOut);
    connect(this, &CInformationWidget::sigNotices, this, &CInformationWidget::slotNotices,
            Qt::QueuedConnection);
    m_local->setListener([this](const QString& code, const LocalTablesPtr& tables) {
        QMetaObject::invokeMethod(
            this, [this, code, tables] { showLocalTables(code, tables); }, Qt::QueuedConnection);
    });
}

CInformationWidget::~CInformationWidget()
{
    // Readers own what they write to; nobody wants it any more.
    m_local->end();
    disconnect();
    m_dataModel.reset();
}

nelservice::CInstrumentDetailPtr CInformationWidget::instrument() const
{
    return utils::CSingletonT<CStockManager>::instance().getInstrumentDetail(getStock());
}

QString CInformationWidget::getStock() const
{
    Lock lock(m_stockMutex);
    return m_stock;
}

void CInformationWidget::setStock(const QString& code)
{
    if (code.isEmpty() || code == getStock())
        return;
    clear();
    {
        Lock lock(m_stockMutex);
        m_stock = code;
    }
    m_requestTimer->stop();
    m_requestTimer->start();
    m_dataModel->setStock(code);
}

void CInformationWidget::clear()
{
    {
        Lock lock(m_stockMutex);
        m_requestedStock.clear();
        m_stock.clear();
    }
    m_local->clear();
    m_dataModel->clear();
}

void CInformationWidget::enableUi()
{
    const auto detail = instrument();
    if (!detail)
        return;
    const bool index = utils::isIndex(detail->market, detail->code);
    const bool stock = utils::isStock(detail->market, detail->code) ||
                       utils::isShanghaiTechBoard(detail->market, detail->code);
    if (!index && !stock)
        return;
    m_leftList->setVisible(stock);
    m_rightList->setVisible(stock);
    Zeb::CWidgetList* const reports = m_tableLists[eTableReports];
    Zeb::CWidgetList* const announcements = m_tableLists[eTableAnnouncements];
    if (reports && announcements && m_topList) {
        if (index || m_pageKind == kAnnouncementsPage || m_pageKind == kReportsPage) {
            const bool showReports = stock && m_pageKind == kReportsPage;
            reports->setVisible(showReports);
            announcements->setVisible(!showReports);
        }
        m_topList->updateWidgetLength();
    }
    m_rootList->updateWidgetLength();
}

// Events
// ----------------------------------------------------------------------------------------------------------

bool CInformationWidget::handleEvent(int id, int first, int second, QString text, void* pointer)
{
    if (id == kEventPage) {
        if (first == kPageFirst && second >= kAnnouncementsPage && second <= kLocalPage)
            showPage(second);
        markTab();
        return true;
    }
    if (id == kEventChosen && first == m_fileChooser->id())
        return true;
    if (id == kEventSwallowed && first == kSwallowedFirst && second <= kMostSwallowedSecond)
        return true;
    return Zeb::CBaseWidget::handleEvent(id, first, second, text, pointer);
}

void CInformationWidget::paintEvent(QPaintEvent* event)
{
    Zeb::CBaseWidget::paintEvent(event);
}

void CInformationWidget::showEvent(QShowEvent* event)
{
    Zeb::CBaseWidget::showEvent(event);
}

void CInformationWidget::wheelEvent(QWheelEvent* event)
{
    event->accept();
}

// Notices
// ---------------------------------------------------------------------------------------------------------

void CInformationWidget::onInfoNotice(const QString& code, QList<boost::shared_ptr<quoter::Notice>>& notices)
{
    if (code == getStock())
        emit sigNotices(code, notices);
}

void CInformationWidget::slotNotices(const QString& code, QList<boost::shared_ptr<quoter::Notice>> notices)
{
    if (code == getStock() && !notices.isEmpty())
        updateNotice(notices);
}

// Local information
// -----------------------------------------------------------------------------------------------

void CInformationWidget::requestInfo()
{
    startReading(m_local, getStock());
}

void CInformationWidget::slotRequestTimeOut()
{
    m_requestTimer->stop();
    if (isVisible()) {
        requestInfo();
        return;
    }
    // A hidden panel leaves even the start of the thread to another one.
    ReaderThreads::instance().start([local = m_local, code = getStock()] { startReading(local, code); });
}

void CInformationWidget::readLocalInformation(const QString& code)
{
    m_local->read(code);
}

void CInformationWidget::showLocalTables(const QString& code, const LocalTablesPtr& tables)
{
    if (code != getStock())
        return;
    m_localTables = tables;
    showLocalFiles();
}

} // namespace Kel
