#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Kel {

/// What a level remembers of its last pass, so that the next one reads only what can have changed.
///
/// A level is at rest when its last pass changed nothing and nothing touched it since: the pass would give
/// the same sum again. An awake level whose list was not rearranged knows the numbers that were dealt or
/// cancelled since the last pass ("touched"): a live order that was not touched has nothing in the caches and
/// needs no look-up. Guarded by whatever guards the level.
class LevelRest
{
public:
    /// Everything has to be read and looked up again.
    void wakeAll()
    {
        m_lookUpAll = true;
        listChanged();
    }

    /// An order was appended that has not been through a pass yet; the others are as they were.
    void wakeForNew() { listChanged(); }

    /// An order was appended whose number may stand in the list twice.
    void wakeForRepeat()
    {
        m_mayRepeat = true;
        listChanged();
    }
    bool mayRepeat() const { return m_mayRepeat; }

    /// A deal or a cancellation came for this number.
    void touch(std::int64_t number)
    {
        m_atRest = false;
        if (m_lookUpAll)
            return;
        if (m_touched.size() >= kMostTouched) {
            m_lookUpAll = true;
            return;
        }
        m_touched.push_back(number);
        m_touchedBits |= bit(number);
    }

    bool atRest() const { return m_atRest; }

    /// Whether the caches have to be asked about a live order with this number.
    bool mustLookUp(std::int64_t number) const
    {
        if (m_lookUpAll)
            return true;
        if ((m_touchedBits & bit(number)) == 0)
            return false;
        for (const std::int64_t touched : m_touched) {
            if (touched == number)
                return true;
        }
        return false;
    }

    /// Ends a pass. `changed`: it wrote to the list; `unsettled`: a live order has an entry in the caches
    /// that a later pass has to look at again.
    void endPass(bool changed, bool unsettled, double sum)
    {
        m_touched.clear();
        m_touchedBits = 0;
        m_lookUpAll = unsettled;
        m_atRest = !changed && !unsettled;
        m_restSum = sum;
        if (changed) {
            m_walkKnown = false;
            m_nothingToDrop = false;
        }
    }

    /// Sum of the last pass, which is the sum of the list while the level is at rest.
    double restSum() const { return m_restSum; }

    // The last walk of `calcUnknownVol` over the list as it is.
    void rememberWalk(double levelVol, int startIndex, double acc)
    {
        m_walkKnown = true;
        m_walkLevelVol = levelVol;
        m_walkStart = startIndex;
        m_walkAcc = acc;
    }
    bool knowsWalk(double levelVol) const { return m_walkKnown && m_walkLevelVol == levelVol; }
    int walkStart() const { return m_walkStart; }
    double walkAcc() const { return m_walkAcc; }

    /// The search for orders before a part-dealt one found none; it holds while the list is as it is.
    void rememberNothingToDrop() { m_nothingToDrop = true; }
    bool nothingToDrop() const { return m_nothingToDrop; }

    /// Bytes on the heap.
    std::size_t heapBytes() const { return m_touched.capacity() * sizeof(std::int64_t); }

private:
    /// Beyond this many numbers asking the caches about every order is as quick as asking about the touched
    /// ones.
    static constexpr std::size_t kMostTouched = 32;

    void listChanged()
    {
        m_atRest = false;
        m_walkKnown = false;
        m_nothingToDrop = false;
    }

    static std::uint64_t bit(std::int64_t number)
    {
        // Numbers of one instrument are spread by other instruments' orders; the multiplication mixes what is
        // left.
        return std::uint64_t(1) << ((static_cast<std::uint64_t>(number) * 0x9E3779B97F4A7C15ull) >> 58);
    }

    bool m_atRest = false;
    bool m_lookUpAll = true;
    bool m_walkKnown = false;
    bool m_nothingToDrop = false;
    bool m_mayRepeat = false;
    int m_walkStart = 0;
    std::uint64_t m_touchedBits = 0;
    std::vector<std::int64_t> m_touched;
    double m_restSum = 0;
    double m_walkLevelVol = 0;
    double m_walkAcc = 0;
};

} // namespace Kel
