#pragma once

#include "feed/DayRows.h"
#include "host/DaySource.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace host {

using DayPtr = std::shared_ptr<const feed::InstrumentDay>;

/// The instruments of a source, and their days when they are asked for. A simulated source has one instrument
/// of each kind. For one thread at a time; nothing is thrown but for want of memory.
class DayStore
{
public:
    explicit DayStore(DaySource source);
    virtual ~DayStore() = default;

    /// Finds out which instruments there are; an import reads all of its files here. False with one line in
    /// `error`, with file and line where one is to blame; "cancelled" ends it if `progress` wanted that.
    bool open(const feed::Progress& progress, std::string& error);

    const std::vector<nelservice::CInstrumentDetail>& instruments() const { return m_instruments; }

    /// Place of the instrument that the source asks for by code, key or kind, or of the first one. -1 with an
    /// error that tells which ones there are.
    int wanted(std::string& error) const;

    /// The day of an instrument; null with an error. Rows of an import stay with the store, others are read
    /// or made again each time.
    virtual DayPtr load(std::size_t index, const feed::Progress& progress, std::string& error);

    /// Whether a day of this source is made or read in a moment, as far as the source tells: false for busy
    /// simulated days.
    bool quick() const;

private:
    bool openSimulated(std::string& error);
    bool openArchive(std::string& error);
    bool openImport(const feed::Progress& progress, std::string& error);
    DayPtr simulate(std::size_t index, const feed::Progress& progress, std::string& error) const;
    DayPtr read(std::size_t index, const feed::Progress& progress, std::string& error) const;

    DaySource m_source;
    std::vector<nelservice::CInstrumentDetail> m_instruments;
    std::vector<feed::SimulationSettings> m_settings; ///< of a simulated source
    std::vector<DayPtr> m_days;                       ///< of an import
};

/// What is missing in the instrument's record, from the day's rows: the previous close of the first snapshot
/// that tells one, the code in place of a name.
void completeDetail(feed::InstrumentDay& day);

} // namespace host
