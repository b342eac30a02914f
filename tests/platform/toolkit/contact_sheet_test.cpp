// Pictures of everything that the toolkit has, in both themes, to be looked at: they are written to the
// folder that the environment names by DEPTH_PICTURES, or else not at all.

#include "platform/resources/CUiResource.h"
#include "platform/toolkit/CBaseTableColumnSimpleTextDelegate.h"
#include "platform/toolkit/CCheckBox.h"
#include "platform/toolkit/CComboBox.h"
#include "platform/toolkit/CCommonDialog.h"
#include "platform/toolkit/CFrameSplitterLine.h"
#include "platform/toolkit/CIntValidator.h"
#include "platform/toolkit/CLineEdit.h"
#include "platform/toolkit/CMediumNormalButton.h"
#include "platform/toolkit/CMenu.h"
#include "platform/toolkit/CPushButton.h"
#include "platform/toolkit/CSimpleInputDialog.h"
#include "platform/toolkit/CSimpleTextWidget.h"
#include "platform/toolkit/CStandardTable.h"
#include "platform/toolkit/CWidgetList.h"
#include "platform/toolkit/theme_guard.h"

#include <QDir>
#include <QPainter>
#include <QTimeEdit>

#include <gmock/gmock.h>

#include <set>

namespace {

using test::resource;

void save(const QPixmap& picture, const QString& name)
{
    const QString folder = qEnvironmentVariable("DEPTH_PICTURES");
    if (folder.isEmpty())
        return;
    QDir().mkpath(folder);
    EXPECT_TRUE(picture.save(QStringLiteral("%1/%2_%3.png").arg(folder, name, resource().theme())));
}

/// Different colours of a picture, up to a few: a blank one has 1.
int colorCount(const QPixmap& picture)
{
    constexpr std::size_t kEnough = 8;
    const QImage image = picture.toImage();
    std::set<QRgb> colors;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width() && colors.size() < kEnough; ++x)
            colors.insert(image.pixel(x, y));
    }
    return static_cast<int>(colors.size());
}

class ContactSheet : public ::testing::TestWithParam<const char*>
{
protected:
    void SetUp() override { resource().setTheme(GetParam()); }

private:
    test::ThemeGuard m_guard;
};

TEST_P(ContactSheet, DrawingsAtFourScales)
{
    QPixmap sheet(900, 620);
    sheet.fill(*resource().getColor("ic_clr_graph_kline_bg"));
    QPainter painter(&sheet);
    painter.setFont(*resource().getFont("fnt_default_normal"));
    int y = 6;
    for (const QString& key : resource().keys()) {
        if (!key.contains("img_"))
            continue;
        painter.setPen(*resource().getColor("clr_window_text"));
        painter.drawText(QRect(6, y, 260, 26), Qt::AlignVCenter, key);
        painter.fillRect(270, y, 90, 26,
                         *resource().getColor("kel_clr_depth_module_group_base_widget_header_bg"));
        painter.drawPixmap(276, y + 2, resource().getPixmap(key, 1));
        int x = 370;
        for (const qreal ratio : {1.0, 1.25, 1.5, 2.0}) {
            QPixmap picture = resource().getPixmap(key, ratio);
            EXPECT_GE(colorCount(picture), 2) << key.toStdString();
            picture.setDevicePixelRatio(1);
            painter.drawPixmap(x, y, picture);
            x += 36 + static_cast<int>(ratio * 20);
        }
        y += 28;
    }
    painter.end();
    save(sheet, "drawings");
}

TEST_P(ContactSheet, PaletteOfAllColours)
{
    QPixmap sheet(1000, 760);
    sheet.fill(*resource().getColor("clr_window_background"));
    QPainter painter(&sheet);
    painter.setFont(*resource().getFont("fnt_graph_axis_text"));
    painter.setPen(*resource().getColor("clr_window_text"));
    int index = 0;
    for (const QString& key : resource().keys()) {
        if (!key.contains("clr_"))
            continue;
        const int x = 6 + (index % 2) * 500;
        const int y = 4 + (index / 2) * 14;
        painter.fillRect(x, y, 60, 12, *resource().getColor(key));
        painter.drawText(x + 66, y + 11, key);
        ++index;
    }
    painter.end();
    EXPECT_EQ(colorCount(sheet), 8);
    save(sheet, "colours");
}

Zeb::CWidgetList* row(Zeb::CWidgetList* column)
{
    auto* list = new Zeb::CWidgetList(Qt::Horizontal, column);
    list->addSpace(20);
    column->addSpace(10);
    column->addWidget(list);
    return list;
}

template <class Widget>
Widget* sized(Widget* widget, int width, int height)
{
    widget->setFixedSize(width, height);
    return widget;
}

TEST_P(ContactSheet, DialogOfControls)
{
    Zeb::CCommonDialog dialog("逐笔委托过滤");
    dialog.setFixedSize(500, 300);
    auto* column = new Zeb::CWidgetList(Qt::Vertical);
    auto* mark = row(column);
    mark->addWidget(sized(new Zeb::CSimpleTextWidget("委托数量标记:"), 80, 24));
    mark->addSpace(5);
    auto* edit = sized(new Zeb::CLineEdit(0, mark), 80, 24);
    edit->setInt(1000000);
    mark->addWidget(edit);
    mark->addSpace(10);
    auto* combo = sized(new Zeb::CComboBox(1, mark), 70, 24);
    combo->setIconSize(QSize(35, 12));
    for (const char* key :
         {"ic_clr_mark_light_blue", "ic_clr_mark_purple", "ic_clr_mark_dark_blue", "ic_clr_mark_yellow"})
        combo->addColorItem(key, key);
    mark->addWidget(combo);
    mark->addSpace(5);
    mark->addWidget(sized(new Zeb::CSimpleTextWidget("高亮标记此委托量,0表示不标记"), 180, 24));
    mark->addStretch();
    column->addSpace(10);
    column->addWidget(new Zeb::CFrameSplitterLine("clr_table_split_line_header", 2, column));
    auto* filter = row(column);
    filter->addWidget(sized(new Zeb::CSimpleTextWidget("逐笔委托过滤:"), 80, 24));
    filter->addWidget(sized(new Zeb::CSimpleTextWidget("委托金额"), 48, 24));
    filter->addWidget(sized(new Zeb::CMediumNormalButton("≥", 2, filter), 24, 24));
    filter->addSpace(10);
    filter->addWidget(sized(new Zeb::CMediumNormalButton("或", 4, filter), 24, 24));
    filter->addStretch();
    auto* time = row(column);
    time->addWidget(sized(new Zeb::CSimpleTextWidget("时间范围:"), 55, 24));
    auto* start = sized(new QTimeEdit(QTime(9, 15)), 80, 24);
    start->setDisplayFormat("hh:mm:ss");
    time->addWidget(start);
    time->addSpace(10);
    time->addWidget(sized(new Zeb::CSimpleTextWidget("至"), 12, 24));
    time->addStretch();
    auto* kinds = row(column);
    for (const char* text : {"买入", "卖出", "撤卖", "撤买"}) {
        auto* check = sized(new Zeb::CCheckBox(text, 7, kinds), 60, 20);
        check->setChecked(QString(text) != "卖出");
        kinds->addWidget(check);
        kinds->addSpace(20);
    }
    kinds->addStretch();
    auto* buttons = row(column);
    buttons->addStretch();
    auto* confirm = sized(new Zeb::CMediumNormalButton("确定", 11, buttons), 60, 20);
    confirm->setDefault(true);
    buttons->addWidget(confirm);
    buttons->addSpace(20);
    buttons->addWidget(sized(new Zeb::CMediumNormalButton("取消", 12, buttons), 60, 20));
    buttons->addSpace(10);
    column->addStretch();
    dialog.setInnerWidget(column);
    dialog.show();
    const QPixmap picture = dialog.grab();
    EXPECT_EQ(picture.size(), QSize(500, 300));
    EXPECT_EQ(colorCount(picture), 8);
    save(picture, "dialog");
    Zeb::CSimpleInputDialog input("设置全高手数", "", nullptr);
    input.setValidator(new Zeb::CIntValidator(4, 2000, &input));
    input.setText("500");
    input.show();
    save(input.grab(), "input");
}

TEST_P(ContactSheet, TableAndTabs)
{
    Zeb::CWidgetList page(Qt::Vertical);
    auto* tabs = new Zeb::CWidgetList(Qt::Horizontal, &page);
    for (const char* text : {"新闻", "公告", "研报", "本地资讯"}) {
        auto* tab = sized(new Zeb::CPushButton("", 0, tabs), 60, 20);
        tab->setText(text);
        tab->setCheckable(true);
        tab->setColorKeys(
            {"kel_clr_depth_bottom_group_btn_nomal", "kel_clr_depth_bottom_group_btn_hover",
             "kel_clr_depth_bottom_group_btn_press", "kel_clr_depth_bottom_group_btn_disable"},
            {"kel_clr_depth_bottom_group_btn_txt_nomal", "kel_clr_depth_bottom_group_btn_txt_hover",
             "kel_clr_depth_bottom_group_btn_txt_press", "kel_clr_depth_bottom_group_btn_txt_disable"});
        tab->setChecked(QString(text) == "公告");
        tab->setDisabled(QString(text) == "新闻");
        tabs->addSpace(5);
        tabs->addWidget(tab);
    }
    tabs->addStretch();
    auto* table = new Zeb::CStandardTable(3, &page);
    table->setFlags((table->flags() | 0x204004U) & ~43U);
    table->setHeaderText(0, "公告日期");
    table->setHeaderText(1, "公告标题");
    table->setHeaderText(2, "股票代码");
    auto* delegate = new Zeb::CBaseTableColumnSimpleTextDelegate("fnt_default_normal_fix");
    table->setColumnDelegate(1, delegate);
    for (int i = 0; i < 30; ++i) {
        const int index = table->appendRow();
        table->setText(index, 0, "2023-02-01");
        delegate->setItemText(QString::number(index),
                              QStringLiteral("关于2022年度业绩预告的公告 (%1)").arg(i));
        delegate->setItemClickable(QString::number(index), true);
        table->setText(index, 2, "600519");
    }
    table->setColumnWidth(0, 90);
    table->setColumnWidth(1, qMax(80, delegate->preferredWidth()));
    table->selectRow(2);
    page.addWidget(tabs);
    page.addWidget(table, 1);
    page.resize(560, 240);
    page.show();
    const QPixmap picture = page.grab();
    EXPECT_EQ(colorCount(picture), 8);
    save(picture, "table");
    Zeb::CMenu menu;
    menu.addAction("设置全高手数");
    QAction* checked = menu.addAction("千档委托金额分布");
    checked->setCheckable(true);
    checked->setChecked(true);
    menu.addSeparator();
    menu.addMenu(new Zeb::CMenu("更多", &menu))->setEnabled(true);
    menu.addAction("调整成交高度")->setEnabled(false);
    menu.ensurePolished();
    menu.resize(menu.sizeHint());
    menu.setActiveAction(checked);
    save(menu.grab(), "menu");
}

INSTANTIATE_TEST_SUITE_P(BothThemes, ContactSheet, ::testing::Values("dark", "light"));

} // namespace
