#pragma once

#include <QRect>
#include <QString>

namespace Kel {

/// Where the ladder's rows and columns stand, for painting and for finding what lies under a point. A value:
/// it is made of the panel's state and maps; nothing of it is kept. Pixels of the panel; divisions truncate.
///
///     |   name|    price| count |  | volume|  | change|bar|
///     3       3         priceLeft          volumeLeft
///
/// In the short form a fixed number of rows a side stands around the latest price, whether or not there are
/// levels for them, and nothing scrolls.
struct LadderLayout
{
    int clientWidth = 0;
    int clientHeight = 0;
    int rowHeight = 20;
    int indexWidth = 30;     ///< level name
    int priceWidth = 50;     ///< price
    int countWidth = 30;     ///< order count
    int volWidth = 55;       ///< volume
    int changeWidth = 40;    ///< change of volume
    int gap = 5;             ///< between columns
    int priceAreaWidth = 50; ///< price and count with the room around them

    int displayLevel = 1000; ///< 11 for the short form
    int visibleRows = 0;     ///< rows that fit the client
    int sellCount = 0;       ///< sell levels there are
    int buyCount = 0;        ///< buy levels there are
    int totalRows = 1;       ///< sells, latest price, buys
    int scrollTop = 0;       ///< first row shown; negative when the rows do not fill the client

    enum Column
    {
        eNoColumn = -1,
        ePrice = 0,
        eCount = 1,
        eVolume = 2,
    };

    bool shortForm() const;

    // Rows
    // --------------------------------------------------------------------------------------------------

    int sells() const; ///< rows above the one of the latest price
    int total() const;
    int first() const;
    int shown() const;

    int firstRow() const; ///< first row that is drawn
    int endRow() const;   ///< the one after the last row that is drawn

    /// Top of the rows, as far as they fill the client.
    int top() const;
    int rowTop(int row) const;

    /// Top of the strip of rows under `y` in a client full of rows: where a pop-up beside a row stands.
    int clickedTop(int y) const;

    /// Index in the list of sells (best price first); may lie outside the list.
    int sellIndex(int row) const { return sells() - row - 1; }

    /// Index in the list of buys (best price last); may lie outside the list.
    int buyIndex(int row) const;

    bool isSell(int row) const { return row < sells(); }
    bool isLatest(int row) const { return row == sells(); }

    /// Number of a level's name, 1 for the best price.
    int levelNumber(int row) const { return isSell(row) ? sells() - row : row - sells(); }

    /// The row under `y`; -1 if there is none.
    int rowAt(int y) const;

    // Columns
    // -----------------------------------------------------------------------------------------------

    /// Whether there are more rows than fit the client, so that the bar takes its width.
    bool exceeds() const { return totalRows > visibleRows; }

    int priceLeft() const;
    int volumeLeft() const;

    /// The column at `x`; the count only where there is one.
    Column columnAt(int x, bool hasCount) const;

    QRect nameCell(int y) const;
    QRect priceCell(int y) const;
    QRect countCell(int y) const;
    QRect volumeCell(int y) const;
    QRect changeCell(int y) const;
    QRect lastVolumeCell(int y) const;  ///< volume of the newest deal
    QRect lastVolumeLabel(int y) const; ///< what it is called
    QRect selection(int y) const;

    /// Ground of a hovered price; a hovered count has its whole cell.
    static QRect hoverBox(const QRect& cell) { return cell.adjusted(0, 1, 0, -1); }

    /// Ground of a hovered volume: around the text alone.
    QRect volumeHoverBox(int y, int textWidth) const;

    // Distribution
    // ------------------------------------------------------------------------------------------

    int distributionRight() const;
    int distributionSpan() const { return changeWidth + gap + volWidth; }
};

/// Room for price and count together in a client of that width.
int priceAreaWidth(const LadderLayout& layout);

/// Length of the distribution's bar of an amount (both of one unit) in pixels, at least 1.
int distributionLength(int span, double amount, double maxAmount);

/// Height of a price in the distribution, pixels from the top.
int distributionY(double price, double minPrice, double maxPrice, int clientHeight);

/// Where the box of a tip stands: right of the cursor, or against the right edge if there is no room.
QRect tipBox(const QPoint& cursor, int textWidth, const QSize& client);

/// The name of level `number`: side and circled number up to 10, tens and ones up to 99, then the number.
QString levelName(int number, bool isBuy);

} // namespace Kel
