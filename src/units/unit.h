// CQrvUnit: display units. Records and evaluators work in one base system; this class converts a
// stored value to the SI or English system for display and tells the label of its unit.
//
// Quantities are named by a unit id: 0 to 34 name a dimension (30 is unused); negative ids name
// an item of the material report and are first mapped to a dimension.
//
//   System 0  base: no conversion ("degree C", "g/(cm.sec) ", "dyne/cm^2", "cc/g", ...)
//   System 1  SI
//   System 2  English
//   other     no labels where they differ by system, and factor 1.0
#ifndef QRV_UNITS_UNIT_H
#define QRV_UNITS_UNIT_H

#include <string>

class CQrvUnit {
public:
    // System 0.
    CQrvUnit() = default;
    virtual ~CQrvUnit() = default;

    // Any value is stored; only 0, 1 and 2 have labels and factors.
    void SetSystem(int system) { System = system; }
    int GetSystem() const { return System; }

    // The stored value converted for display in the present system.
    double ConvertFromBase(double value, int unitId);

    // Converts *value in place: from base to the present system, or back when toBase is set.
    // System 0 changes nothing (the id is not even mapped). A negative id is mapped first; an id
    // that stays negative, or has no factor, converts by 1.0. Temperature (id 1) is an offset
    // scale: +273.15 to K, *1.8 + 32 to degree F. Throws std::invalid_argument for a null value.
    void Convert(double* value, int unitId, bool toBase);

    // The label of the unit in the present system, trailing blanks kept. A negative id is mapped
    // first whatever the system. Empty for an id above 34, for 30, for a negative id outside the
    // map, and for a system other than 0, 1, 2 where the label depends on the system.
    std::string GetLabel(int unitId);

    // Maps a report item's negative id to its dimension in place. Ids outside the map (every
    // id of 0 or above, and unlisted negative ones) stay as they are. Throws
    // std::invalid_argument for a null pointer.
    void MapUnitId(int* unitId);

private:
    int System = 0;
};

#endif
