// CPropertySet: the MaterialProperty evaluators of one material, built from its object's blocks
// by model id. A slot stays null for a model that has no class, or for a block whose parameter
// array is missing or shorter than its model reads.
#ifndef QRV_REPORT_PROPERTY_SET_H
#define QRV_REPORT_PROPERTY_SET_H

#include <quorvalib/evaluators.h>

#include <memory>

class CQrvMatBase;

class CPropertySet {
public:
    // Each builds its slot from a block (model id, Count, Para) and answers whether a class was
    // built; on false the slot keeps what it held. Heat capacity has ids 3 (CAE Model 2) and 4
    // (table), conductivity the other way round: 3 is its table and 4 its CAE Model 2.
    bool SetViscosity(int model, int count, const double* para);
    bool SetPVT(int model, int count, const double* para);
    bool SetHeatCapacity(int model, int count, const double* para);
    bool SetThermoConductivity(int model, int count, const double* para);

    // All four from the blocks of stream tags 0 to 3 of the object.
    void Fill(CQrvMatBase& material);

    std::unique_ptr<MaterialProperty::CViscosity> Viscosity;
    std::unique_ptr<MaterialProperty::CPVT> PVT;
    std::unique_ptr<MaterialProperty::CHeatCapacity> HeatCapacity;
    std::unique_ptr<MaterialProperty::CThermoConductivity> ThermoConductivity;
};

#endif
