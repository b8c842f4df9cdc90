// Field readers, type tests and the material type text.
#include <iterator>

#include "record/guard.h"
#include "vocabulary/name_text.h"

using qrv::withMaterial;

namespace {

template <typename Field>
Field readField(const QrvMaterial* material, Field QrvMaterial::*field) {
    return withMaterial(material, Field{}, [field](const QrvMaterial& m) { return m.*field; });
}

bool hasType(const QrvMaterial* material, int code) {
    return withMaterial(material, false,
                        [code](const QrvMaterial& m) { return m.FileType == code; });
}

struct TypeText {
    int code;
    const char* text;
};

constexpr TypeText kTypeTexts[] = {
    {QRV_TYPE_THERMOPLASTIC, "Thermoplastic"},
    {QRV_TYPE_THERMOSET, "Thermosetting plastic"},
    {QRV_TYPE_METAL, "Metal"},
    {QRV_TYPE_COOLANT, "Coolant"},
    {QRV_TYPE_IC_CHIP, "Chip"},
    {QRV_TYPE_IC_LEADFRAME, "Lead Frame"},
    {QRV_TYPE_IC_SUBSTRATE, "Substrate"},
    {QRV_TYPE_IC_WIRE, "Wire"},
    {QRV_TYPE_FLUID, "Fluid"},
};

}  // namespace

int QrvGetFileVer(QrvMaterial* material) {
    return readField(material, &QrvMaterial::FileVer);
}
int QrvGetFileType(QrvMaterial* material) {
    return readField(material, &QrvMaterial::FileType);
}
int QrvGetLastEditDate(QrvMaterial* material) {
    return readField(material, &QrvMaterial::LastEditDate);
}
int QrvGetMeasureDate(QrvMaterial* material) {
    return readField(material, &QrvMaterial::MeasureDate);
}
const char* QrvGetPolymer(QrvMaterial* material) {
    return readField<char*>(material, &QrvMaterial::Polymer);
}
const char* QrvGetProducer(QrvMaterial* material) {
    return readField<char*>(material, &QrvMaterial::Producer);
}
const char* QrvGetGradeName(QrvMaterial* material) {
    return readField<char*>(material, &QrvMaterial::GradeName);
}
const char* QrvGetComment(QrvMaterial* material) {
    return readField<char*>(material, &QrvMaterial::Comment);
}
const char* QrvGetSource(QrvMaterial* material) {
    return readField<char*>(material, &QrvMaterial::Source);
}

bool QrvIsThermoplastic(QrvMaterial* material) {
    return withMaterial(material, false,
                        [](const QrvMaterial& m) { return m.FileType < QRV_TYPE_THERMOSET; });
}
bool QrvIsRIM(QrvMaterial* material) {
    return hasType(material, QRV_TYPE_THERMOSET);
}
bool QrvIsThermoset(QrvMaterial* material) {
    return QrvIsRIM(material);
}
bool QrvIsMetal(QrvMaterial* material) {
    return hasType(material, QRV_TYPE_METAL);
}
bool QrvIsCoolant(QrvMaterial* material) {
    return hasType(material, QRV_TYPE_COOLANT);
}
bool QrvIsIC_Chip(QrvMaterial* material) {
    return hasType(material, QRV_TYPE_IC_CHIP);
}
bool QrvIsIC_LeadFrame(QrvMaterial* material) {
    return hasType(material, QRV_TYPE_IC_LEADFRAME);
}
bool QrvIsIC_Substrate(QrvMaterial* material) {
    return hasType(material, QRV_TYPE_IC_SUBSTRATE);
}
bool QrvIsIC_Wire(QrvMaterial* material) {
    return hasType(material, QRV_TYPE_IC_WIRE);
}

const char* QrvGetMaterialType(QrvMaterial* material) {
    if (!material) return qrv::setNameText("fail");
    for (const TypeText& entry : kTypeTexts) {
        if (entry.code == material->FileType) return qrv::setNameText(entry.text);
    }
    return qrv::setNameText("Unknown Type");
}
