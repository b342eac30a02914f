#include "platform/models/DealSummary.h"

#include <algorithm>

namespace Kel {

void DealSums::add(int lotsOfDeal, double price)
{
    maxPrice = deals == 0 ? price : std::max(maxPrice, price);
    minPrice = deals == 0 ? price : std::min(minPrice, price);
    lots += lotsOfDeal;
    ++deals;
}

void DealSums::add(const DealSums& other)
{
    if (other.deals == 0)
        return;
    maxPrice = deals == 0 ? other.maxPrice : std::max(maxPrice, other.maxPrice);
    minPrice = deals == 0 ? other.minPrice : std::min(minPrice, other.minPrice);
    lots += other.lots;
    deals += other.deals;
}

void DealSummary::append(int lots, double price)
{
    if (m_size % kBlock == 0)
        m_blocks.append({});
    m_blocks.last().add(lots, price);
    ++m_size;
}

int DealSummary::truncate(int size)
{
    if (size < m_size) {
        const int blocks = std::max(size, 0) / kBlock;
        m_blocks.truncate(blocks);
        m_size = blocks * kBlock;
    }
    return m_size;
}

} // namespace Kel
