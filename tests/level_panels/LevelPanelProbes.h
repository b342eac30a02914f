#pragma once

#include "QuoteRecords.h"
#include "level_panels/CDepthConciseStyleEntrustStatusWidget.h"
#include "level_panels/CDepthEntrustStatusWidget.h"
#include "platform/resources/CUiResource.h"
#include "support/PaintRecorder.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QPainter>

#include <gmock/gmock.h>

#include <memory>
#include <utility>

/// The quote panels with everything open to the tests.
namespace test {

/// Whether a text stands in the font of a key. The fonts of the panels differ in size or stretch.
inline bool hasFont(const testing_support::PaintCommand& text, const char* key)
{
    const auto& resource = utils::CSingletonT<Zeb::CUiResource>::instance();
    const QFont& font = *resource.getFont(QLatin1String(key));
    return text.kind == testing_support::PaintCommand::eText && text.font.pixelSize() == font.pixelSize() &&
           text.font.stretch() == font.stretch();
}

constexpr const char* kTextFont = "ic_fnt_index_modulegroup_entruststatus_text";
constexpr const char* kPriceFont = "ic_fnt_index_modulegroup_entruststatus_price";
constexpr const char* kAmountFont = "ic_fnt_index_modulegroup_entruststatus_amount";

template <class Panel>
class LevelPanelProbe : public Panel
{
public:
    explicit LevelPanelProbe(bool tenLevels = true) : Panel(nullptr, tenLevels) {}

    using Panel::m_background;
    using Panel::m_clickRect;
    using Panel::m_deltaWidth;
    using Panel::m_hoverRect;
    using Panel::m_labels;
    using Panel::m_labels1;
    using Panel::m_labels10;
    using Panel::m_labels5;
    using Panel::m_labelWidth;
    using Panel::m_model;
    using Panel::m_panelRect;
    using Panel::m_priceWidth;
    using Panel::m_priceZoneWidth;
    using Panel::m_rowHeight;
    using Panel::m_shelves;
    using Panel::m_shown;
    using Panel::m_spacing;
    using Panel::m_tenLevels;
    using Panel::m_topY;
    using Panel::m_volumeWidth;

    using Panel::doTradeFunc;
    using Panel::drawBackground;
    using Panel::drawForeground;
    using Panel::getCursorRect;
    using Panel::getPriceColor;
    using Panel::resetShelves;

    void send(const boost::shared_ptr<quoter::QuoterBase>& record)
    {
        this->quoterCallBack(0, -1, {record}, true);
    }

    /// What `drawBackground` paints.
    std::unique_ptr<testing_support::PaintRecorder> background()
    {
        auto recorder = std::make_unique<testing_support::PaintRecorder>(this->width(), this->height());
        QPainter painter(recorder.get());
        drawBackground(painter);
        return recorder;
    }

    std::unique_ptr<testing_support::PaintRecorder> foreground()
    {
        auto recorder = std::make_unique<testing_support::PaintRecorder>(this->width(), this->height());
        QPainter painter(recorder.get());
        drawForeground(&painter);
        return recorder;
    }

    /// Paints since the last call, after everything that waits was done.
    int paints()
    {
        for (int round = 0; round < 3; ++round) // an event asks for an update, which asks for a paint
            QCoreApplication::processEvents();
        return std::exchange(m_paints, 0);
    }

    void move(int x, int y) { mouse(QEvent::MouseMove, x, y); }
    void press(int x, int y) { mouse(QEvent::MouseButtonPress, x, y); }
    void leave()
    {
        QEvent event(QEvent::Leave);
        QCoreApplication::sendEvent(this, &event);
    }

protected:
    void paintEvent(QPaintEvent* event) override
    {
        ++m_paints;
        Panel::paintEvent(event);
    }

private:
    void mouse(QEvent::Type type, int x, int y)
    {
        const auto button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, QPointF(x, y), button, button, Qt::NoModifier);
        QCoreApplication::sendEvent(this, &event);
    }

    int m_paints = 0;
};

} // namespace test
