#pragma once

#include "information/LocalInformation.h"
#include "platform/toolkit/CBaseWidget.h"
#include "records/CInstrumentDetail.h"
#include "records/Notice.h"

#include <QList>
#include <QMetaType>
#include <QString>

#include <boost/shared_ptr.hpp>
#include <boost/thread/mutex.hpp>

#include <memory>

Q_DECLARE_METATYPE(boost::shared_ptr<quoter::Notice>)

class QAbstractItemModel;
class QTimer;

namespace Zeb {
class CBaseTableColumnSimpleTextDelegate;
class CComboBox;
class CPushButton;
class CSimpleTextWidget;
class CStandardTable;
class CWidgetList;
} // namespace Zeb

namespace Kel {

class CMultiThreadDataModel;
class LocalTableModel;

/// News, announcements, research reports and local text tables of one instrument, each in a table under a
/// tab.
///
///     | 新闻  公告  研报  本地资讯                    |
///     | 公告日期    | 公告标题                       |
///     | 2023-02-01 | ...                            |
///
/// The host chooses the instrument with `setStock` and hands notices to `onInfoNotice`; they become rows of
/// the announcements. Five seconds after the last change of instrument the local files of the instrument are
/// read on a thread of their own, and page 3 shows them. The tab of the news works once the host has filled
/// their table.
///
/// Rows stay when the instrument changes; the host takes them away with `clearTables`.
///
/// Events: takes 302 (4, page): 1 announcements, 2 reports, 3 local information; swallows 227 (3, up to 3).
/// Its tabs send 302.
///
/// Threads: `onInfoNotice` may be called on any thread while the panel lives; everything else belongs to the
/// GUI thread. Readers outlive the panel if they must and deliver nothing then.
class CInformationWidget : public Zeb::CBaseWidget
{
    Q_OBJECT

public:
    /// The tables, in the order of their tabs.
    enum ETable
    {
        eTableNews,
        eTableAnnouncements,
        eTableReports,
        eTableLocal,
        eTableCount,
    };

    explicit CInformationWidget(QWidget* parent = nullptr);
    ~CInformationWidget() override;

    /// Forgets the instrument and reads the files of the new one in five seconds. An empty code and the
    /// present one change nothing.
    void setStock(const QString& code);
    QString getStock() const;

    /// Forgets the instrument and what was read. The tables keep their rows.
    void clear();

    /// Takes the rows out of all tables.
    void clearTables();

    /// Fits what is shown to the kind of the instrument: an index has no information, a stock has its page.
    /// Any other kind, and no instrument, change nothing.
    void enableUi();

    /// True: information needs no connection.
    bool checkQuoteConnect() { return true; }

    /// Hands notices of an instrument over; those of another one are dropped. Any thread.
    void onInfoNotice(const QString& code, QList<boost::shared_ptr<quoter::Notice>>& notices);

    /// A table for the host to fill; the columns are id, date, name, title, time, code, link.
    Zeb::CStandardTable* table(ETable which) const { return m_tables[which]; }

    bool handleEvent(int id, int first, int second, QString text, void* data) override;
    void themeChanged() override;

signals:
    void sigNotices(const QString& code, QList<boost::shared_ptr<quoter::Notice>> notices);

public slots:
    /// Appends the notices to the announcements if they are of the present instrument.
    void slotNotices(const QString& code, QList<boost::shared_ptr<quoter::Notice>> notices);

    /// Reads the local files, once.
    void slotRequestTimeOut();

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

    void creatUi();
    void addOneRow(Zeb::CStandardTable* table, boost::shared_ptr<quoter::Notice> notice);
    void updateNotice(const QList<boost::shared_ptr<quoter::Notice>>& notices);

    /// Starts a thread that reads the files of the instrument.
    void requestInfo();

    /// Reads the files of an instrument into the maps, see `LocalInformation`. Reader threads only.
    void readLocalInformation(const QString& code);

    Zeb::CWidgetList* m_leftList = nullptr;  ///< the half of the news
    Zeb::CWidgetList* m_rightList = nullptr; ///< the half of tabs and pages
    Zeb::CWidgetList* m_rootList = nullptr;  ///< the row of both halves
    Zeb::CWidgetList* m_topList = nullptr;   ///< the tabs
    Zeb::CWidgetList* m_pageList = nullptr;  ///< the pages
    Zeb::CStandardTable* m_tables[eTableCount] = {};
    Zeb::CWidgetList* m_tableLists[eTableCount] = {};
    QString m_stock;          ///< code of the instrument; guarded by `m_stockMutex`
    QString m_requestedStock; ///< emptied with the code
    int m_rowOwner = 0;       ///< 1: announcements show the instrument's name
    boost::shared_ptr<CMultiThreadDataModel> m_dataModel;
    int m_pageKind = 2; ///< 1 announcements, 2 reports, 3 local information
    std::shared_ptr<LocalInformation> m_local;
    QTimer* m_requestTimer = nullptr;

private:
    nelservice::CInstrumentDetailPtr instrument() const;
    void createTable(int index);
    void createTab(int index);
    void createLocalPage();
    void showPage(int page);
    void markTab();
    void newsArrived();
    void addRows(Zeb::CStandardTable* table, const QList<boost::shared_ptr<quoter::Notice>>& notices);
    void fitTitles(Zeb::CStandardTable* table);
    void copyLink(Zeb::CStandardTable* table, int row);
    void showLocalTables(const QString& code, const LocalTablesPtr& tables);
    void showLocalFiles();
    void chooseLocalFile(int index);
    void showLocalModel(QAbstractItemModel* model);

    mutable boost::mutex m_stockMutex;
    Zeb::CPushButton* m_tabs[eTableCount] = {};
    Zeb::CComboBox* m_fileChooser = nullptr;
    Zeb::CSimpleTextWidget* m_cutHint = nullptr; ///< what page 3 does not show of a large file
    LocalTableModel* m_localModel = nullptr;
    QAbstractItemModel* m_emptyLocalModel = nullptr; ///< the table's own, shown while there is no file
    Zeb::CBaseTableColumnSimpleTextDelegate* m_localTitles = nullptr;
    LocalTablesPtr m_localTables; ///< what page 3 shows, of whatever instrument it was read
};

} // namespace Kel
