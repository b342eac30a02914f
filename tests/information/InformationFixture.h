#pragma once

#include "information/CInformationWidget.h"
#include "platform/services/CStockManager.h"
#include "platform/services/external_data.h"
#include "platform/toolkit/CPushButton.h"
#include "platform/toolkit/CStandardTable.h"
#include "platform/toolkit/CWidgetList.h"
#include "platform/utils/CSingletonT.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QMouseEvent>
#include <QTemporaryDir>
#include <QTimer>

#include <boost/make_shared.hpp>
#include <boost/thread/thread.hpp>

#include <gmock/gmock.h>

namespace test {

class InformationProbe : public Kel::CInformationWidget
{
public:
    using CInformationWidget::addOneRow;
    using CInformationWidget::m_dataModel;
    using CInformationWidget::m_leftList;
    using CInformationWidget::m_local;
    using CInformationWidget::m_pageKind;
    using CInformationWidget::m_pageList;
    using CInformationWidget::m_requestedStock;
    using CInformationWidget::m_requestTimer;
    using CInformationWidget::m_rightList;
    using CInformationWidget::m_rootList;
    using CInformationWidget::m_rowOwner;
    using CInformationWidget::m_tableLists;
    using CInformationWidget::m_tables;
    using CInformationWidget::m_topList;
    using CInformationWidget::readLocalInformation;
    using CInformationWidget::requestInfo;
    using CInformationWidget::updateNotice;

    /// Presses and releases the mouse on a tab.
    void clickTab(const QString& text) const
    {
        Zeb::CPushButton* const button = tab(text);
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            const auto held = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
            QMouseEvent event(type, QPointF(button->rect().center()), Qt::LeftButton, held, Qt::NoModifier);
            QCoreApplication::sendEvent(button, &event);
        }
    }

    Zeb::CPushButton* tab(const QString& text) const
    {
        for (auto* button : m_topList->findChildren<Zeb::CPushButton*>()) {
            if (button->text() == text)
                return button;
        }
        return nullptr;
    }
};

/// Instruments "浦发银行" SH600000, an index, a fund and a bare external data directory.
class InformationTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        stocks().clear();
        add("SH", "600000", "浦发银行");
        add("SZ", "000001", "平安银行");
        add("SH", "688001", "科创一号");
        add("SH", "000300", "沪深300");
        add("SH", "510300", "基金");
        Kel::setExternalDataDir(m_directory.path());
    }
    void TearDown() override
    {
        stocks().clear();
        Kel::setExternalDataDir(QString());
    }

    static Kel::CStockManager& stocks() { return utils::CSingletonT<Kel::CStockManager>::instance(); }

    static void add(const char* market, const char* code, const char* name)
    {
        auto detail = boost::make_shared<nelservice::CInstrumentDetail>();
        detail->market = market;
        detail->code = code;
        detail->name = name;
        stocks().addInstrument(detail);
    }

    QString folder(const QString& market, const QString& code) const
    {
        return m_directory.path() + "/localinformation/" + market + '/' + code;
    }

    void write(const QString& market, const QString& code, const QString& fileName, const QByteArray& bytes)
    {
        ASSERT_TRUE(QDir().mkpath(folder(market, code)));
        QFile file(folder(market, code) + '/' + fileName);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }

    static boost::shared_ptr<quoter::Notice> notice(const char* title, const char* link = "",
                                                    std::int64_t time = 1675218600000)
    {
        auto made = boost::make_shared<quoter::Notice>();
        made->m_time = time;
        made->title = title;
        made->link = link;
        return made;
    }

    /// Runs the event loop until the condition holds; false if it does not within ten seconds.
    template <class Condition>
    static bool waitFor(Condition condition)
    {
        QElapsedTimer clock;
        clock.start();
        while (!condition() && clock.elapsed() < 10000) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
            boost::this_thread::sleep_for(boost::chrono::milliseconds(1));
        }
        return condition();
    }

    QTemporaryDir m_directory;
};

} // namespace test
