#pragma once

#include "platform/resources/CUiResourceChangeHandler.h"
#include "records/DepthExport.h"

#include <QHash>
#include <QPointer>
#include <QStringList>
#include <QTableView>
#include <QVector>

namespace Zeb {

class CBaseTableColumnSimpleTextDelegate;
class TextTableModel;

/// Table of texts with a header, colours and fonts by key. Rows and columns are counted from 0; what names a
/// cell that is not there does nothing and gives an empty text. GUI thread.
class DEPTH_EXPORT CStandardTable : public QTableView, public CUiResourceChangeHandler
{
    Q_OBJECT

public:
    /// How a table looks and works, as bits of its flags.
    enum ETableFlag : unsigned
    {
        eTableVerticalLines = 0x1,
        eTableHorizontalLines = 0x2,
        eTableWholeRows = 0x4,         ///< a click selects the row, not the cell
        eTableRowNumbers = 0x8,        ///< a column of row numbers at the left
        eTableEditable = 0x20,         ///< a double click edits a cell
        eTableCutTips = 0x4000,        ///< a tip shows a text that is cut off
        eTableSmoothScroll = 0x200000, ///< scrolls by pixels, not by rows
    };

    /// What a new table has.
    static constexpr unsigned kFirstFlags =
        eTableVerticalLines | eTableHorizontalLines | eTableRowNumbers | eTableEditable;

    explicit CStandardTable(int columns, QWidget* parent = nullptr);

    unsigned flags() const { return m_flags; }

    /// Bits without a meaning are kept.
    void setFlags(unsigned flags);

    void setHeaderText(int column, const QString& text);
    QString headerText(int column) const;

    /// Grounds of the cells, and of header and row numbers.
    void setBackgroundKeys(const QString& cells, const QString& numbers);
    void setHeaderStyle(const QString& colorKey, const QString& fontKey);

    /// `delegate` draws `column` from now on and keeps its texts. The table becomes its parent; null goes
    /// back to plain texts.
    void setColumnDelegate(int column, CBaseTableColumnSimpleTextDelegate* delegate);

    /// Appends an empty row; its index.
    int appendRow();

    /// Appends rows of these texts, in the default colour, for little more than the price of one: a feed may
    /// bring thousands. What a row has beyond the columns is left out. The index of the first.
    int appendRows(const QVector<QStringList>& rows);
    int rowCount() const;
    int columnCount() const;

    /// The text of a cell in a column without a delegate, in the theme's colour `colorKey`, which follows the
    /// theme; "ic_clr_table_text_default" if it is empty.
    void setText(int row, int column, const QString& text, const QString& colorKey = QString());
    QString text(int row, int column) const;

    /// Takes all rows away; columns, header and widths stay.
    void clearRows();

    void themeChanged() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    void applyFlags();
    void applyColors();
    void copySelection() const;

    TextTableModel* m_model;
    QHash<int, QPointer<CBaseTableColumnSimpleTextDelegate>> m_delegates;
    unsigned m_flags = kFirstFlags;
    QString m_cellsKey;
    QString m_numbersKey;
    QString m_headerColorKey;
    QString m_headerFontKey;
};

} // namespace Zeb
