// The records of large documents, for a loop.
#pragma once

#include <cstddef>
#include <iterator>
#include <type_traits>
#include <utility>

#include "BxXmlLib5/binding/CRecordReader.h"
#include "BxXmlLib5/collections/CElement.h"

namespace BxXmlLib5::Generated {

using BxXmlLib5::RecordReaderSettings;

/// Reads large documents record by record.
using RecordReader = CRecordReader;

/// The records of a document, one after another in the same object, of a generated class or CElement:
///
///     for (CWpt const& point : Bx::Records<CWpt>("track.gpx", u"gpx/trk/trkseg/trkpt")) Use(point);
///
/// It is an input range: a record lives until the next one is read, unless it is copied. begin() reads one too, so
/// that a loop can be entered again behind a record that did not fit. CRecordReader tells the rest.
template <class T>
class Records {
public:
    /// Stands at a record, or behind the last one.
    class Iterator {
    public:
        // What the standard library asks of iterators.
        /// @cond
        using iterator_concept = std::input_iterator_tag;
        using iterator_category = std::input_iterator_tag;
        using value_type = T;
        using difference_type = std::ptrdiff_t;
        using pointer = T*;
        using reference = T&;
        /// @endcond

        /// Behind the last record.
        Iterator() = default;

        /// The record; there must be one.
        T& operator*() const { return m_records->m_object; }
        /// A member of the record; there must be one.
        T* operator->() const { return &m_records->m_object; }
        /// @throws CBxException as CRecordReader::Read()
        Iterator& operator++() {
            if (!m_records->m_reader.Read(m_records->m_object)) m_records = nullptr;
            return *this;
        }
        /// As above.
        void operator++(int) { ++*this; }
        /// Whether there are no more records.
        bool operator==(std::default_sentinel_t) const { return m_records == nullptr; }

    private:
        friend class Records;
        explicit Iterator(Records* records) : m_records(records) {}

        Records* m_records = nullptr;
    };

    /// @param source a path, octets or a function, as CRecordReader takes them
    /// @param records the path of the records
    template <class Source>
    Records(Source&& source, char16_t const* records, RecordReaderSettings const& settings = {})
        : m_reader(std::forward<Source>(source), records, settings) {}

    /// Reads the next record.
    /// @throws CBxException as CRecordReader::Read()
    Iterator begin() { return ++Iterator(this); }
    /// The end of each loop.
    std::default_sentinel_t end() const { return {}; }

    /// What stands around the records, as far as it was read: CRecordReader::ReadSurroundings().
    template <class Root>
    Root Surroundings() {
        Root root = New<Root>();
        m_reader.ReadSurroundings(root);
        return root;
    }

    /// What reads the records.
    CRecordReader& Reader() { return m_reader; }

private:
    template <class Object>
    static Object New() {
        if constexpr (std::is_same_v<Object, CElement>) {
            return CElement(u"");
        } else {
            return Object();
        }
    }

    CRecordReader m_reader;
    T m_object = New<T>();
};

}  // namespace BxXmlLib5::Generated
