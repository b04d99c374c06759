#include "structuredmembers.h"

#include <array>

#include "marvane_headers.h"
#include "stat_members.h"

namespace {

// Without the full stop, which the label of the variable ends in.
QStringList stat_extenders()
{
    QStringList extenders;
    for (const StatMember& member : STAT_MEMBERS)
        extenders.append(QString::fromLatin1(member.name + 1));
    return extenders;
}

constexpr auto comp_extenders =
    "H2 CO O2 WA C2 N2 NX AR AM ME EE PR NB IB NP IP HX HE OC NN HS H2S MTM ETM DMS IPM TBM MES "
    "NPM SBM DES THT NM OM HM CM NA OA HA CA NF OF HF CF FA OL SA UT MM";

constexpr auto prop_extenders =
    "AT AP CP CV GM TH GC ER SR HV HU ET VS RE DD ID IR CM DW AH VP WD EA LM LV HM HH WL WH MR ML "
    "MT MO KE KT KP HC RD RW IE OT CU CI DS LH DE UT";

constexpr auto emis_extenders =
    "FUEL_MF_MEA AIR_MF_MEA EXH_MF_MEA EXH_CD_CO2_MEA EXH_CD_O2_MEA EXH_CD_CO_MEA EXH_CD_NOX_MEA "
    "EXH_CW_HC_MEA EXH_CW_NOX_MEA FUEL_MW AIR_MF_DRY CD_CO2_TH CD_O2_TH DRY_TO_WET_TH CW_CO2_G1 "
    "CW_CO_G1 CW_NOX_G1 CW_HC_G1 MF_CO2 MF_CO MF_NOX MF_HC MW_HC CBE CBE_CO2 AFDE_O2 AFDE_CO2 "
    "BSCO2_G1 BSCO_G1 BSNOX_G1 BSHC_G1 NOX_COR_G1 BSNOX_COR_G1 FSCO2_G1 FSCO_G1 FSNOX_G1 FSHC_G1 "
    "FA_WET DRY_WET_I1 EXH_CW_CO2_I1 EXH_CW_CO_I1 EXH_CW_NOX_I1 EXH_CW_HC_I1 EXH_MF_CO2_I1 "
    "EXH_MF_CO_I1 EXH_MF_NOX_I1 EXH_MF_HC_I1 BSCO2_I1 BSCO_I1 BSNOX_I1 BSHC_I1 NOX_COR_I1 "
    "BSNOX_COR_I1 PSEUDO_PHI CO2_ERR O2_ERR UT";

// A kind of variable with members: the platform's function that looks a label up, and the members
// in the order in which they are offered. The first kind that finds a label is used.
struct StructuredKind {
    QT_MARVANE_FLAGS flag;
    int16_t (*find)(const char* label, SHARED_MEMORY* mem);
    QStringList (*extenders)();
};

QStringList words(const char* text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '));
}

constexpr std::array<StructuredKind, 4> STRUCTURED_KINDS{{
    {QT_MARVANE_COMP, find_comp_label, [] { return words(comp_extenders); }},
    {QT_MARVANE_STAT, find_stat_label, stat_extenders},
    {QT_MARVANE_PROP, find_prop_label, [] { return words(prop_extenders); }},
    {QT_MARVANE_EMIS, find_emis_label, [] { return words(emis_extenders); }},
}};

}  // namespace

QStringList membersOf(const QString& name, QT_MARVANE_VAR_TYPE kinds)
{
    const QByteArray label = name.toUtf8();
    SHARED_MEMORY mem{};
    for (const StructuredKind& kind : STRUCTURED_KINDS) {
        if (kinds.testFlag(kind.flag) && kind.find(label.constData(), &mem) == 0)
            return kind.extenders();
    }
    return {};
}
