// Building the evaluators of a material by model id: one table per property from id to the class
// and to the number of values its constructor reads.
#include "report/property_set.h"

#include <memory>

#include "formats/mat_base.h"

namespace {

using namespace MaterialProperty;

template <typename Base>
struct Kind {
    int valuesRead;  // the constructor reads Para[0] .. Para[valuesRead - 1]; 0 for tables
    std::unique_ptr<Base> (*make)(int count, const double* para);
};

template <typename Base, typename Class>
std::unique_ptr<Base> make(int, const double* para) {
    return std::make_unique<Class>(para);
}

template <typename Base, typename Class>
std::unique_ptr<Base> makeTable(int count, const double* para) {
    return std::make_unique<Class>(count, para);
}

// Indexed by model id; id 0 has no class.
const Kind<CViscosity> kViscosity[] = {
    {0, nullptr},
    {1, make<CViscosity, CVisNewtonian>},
    {3, make<CViscosity, CVisPowerLaw>},
    {5, make<CViscosity, CVisModifiedCross1>},
    {5, make<CViscosity, CVisModifiedCross2>},
    {7, make<CViscosity, CVisModifiedCross3>},
    {5, make<CViscosity, CVisCarreau>},
    {7, make<CViscosity, CVisCarreauYasuda>},
};

const Kind<CPVT> kPVT[] = {
    {0, nullptr},
    {1, make<CPVT, CPVTConstant>},
    {3, make<CPVT, CPVTSpencerGilmore>},
    {5, make<CPVT, CPVTTai>},
    {7, make<CPVT, CPVTModifiedTai1>},
    {13, make<CPVT, CPVTModifiedTai2>},
};

// Heat capacity: 3 is the second CAE curve and 4 the table; conductivity the other way round.
const Kind<CHeatCapacity> kHeatCapacity[] = {
    {0, nullptr},
    {1, make<CHeatCapacity, CCPConstant>},
    {4, make<CHeatCapacity, CCPCAE1>},
    {8, make<CHeatCapacity, CCPCAE2>},
    {0, makeTable<CHeatCapacity, CCPTabulated>},
};

const Kind<CThermoConductivity> kThermoConductivity[] = {
    {0, nullptr},
    {1, make<CThermoConductivity, CKConstant>},
    {4, make<CThermoConductivity, CKCAE1>},
    {0, makeTable<CThermoConductivity, CKTabulated>},
    {8, make<CThermoConductivity, CKCAE2>},
};

template <typename Base, std::size_t N>
bool build(const Kind<Base> (&kinds)[N], int model, int count, const double* para,
           std::unique_ptr<Base>& slot) {
    if (model < 0 || static_cast<std::size_t>(model) >= N || !kinds[model].make) return false;
    const Kind<Base>& kind = kinds[model];
    if (count > 0 && !para) return false;
    if (count < kind.valuesRead) return false;
    slot = kind.make(count, para);
    return true;
}

}  // namespace

bool CPropertySet::SetViscosity(int model, int count, const double* para) {
    return build(kViscosity, model, count, para, Viscosity);
}

bool CPropertySet::SetPVT(int model, int count, const double* para) {
    return build(kPVT, model, count, para, PVT);
}

bool CPropertySet::SetHeatCapacity(int model, int count, const double* para) {
    return build(kHeatCapacity, model, count, para, HeatCapacity);
}

bool CPropertySet::SetThermoConductivity(int model, int count, const double* para) {
    return build(kThermoConductivity, model, count, para, ThermoConductivity);
}

void CPropertySet::Fill(CQrvMatBase& material) {
    using Setter = bool (CPropertySet::*)(int, int, const double*);
    static constexpr struct {
        int tag;
        Setter set;
    } kSlots[] = {
        {QRV_TAG_VIS, &CPropertySet::SetViscosity},
        {QRV_TAG_PVT, &CPropertySet::SetPVT},
        {QRV_TAG_CP, &CPropertySet::SetHeatCapacity},
        {QRV_TAG_K, &CPropertySet::SetThermoConductivity},
    };
    for (const auto& slot : kSlots) {
        int model = 0, count = 0;
        material.GetParamInfo(slot.tag, nullptr, &model, &count);
        // A model without a class leaves its slot empty; the checks skip what needs it.
        (this->*slot.set)(model, count, material.GetParamArray(slot.tag));
    }
}
