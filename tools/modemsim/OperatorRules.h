// The rules across the fields of the operator and home-network parts of a
// state, which the field catalogue runs once each part's fields have read well
// (ProfileSchema.h): on a profile and on every state a timeline patch leaves.
// Pure functions.
#ifndef MODEMSIM_OPERATORRULES_H
#define MODEMSIM_OPERATORRULES_H

#include <optional>

#include "ModemState.h"
#include "SchemaVisitors.h"

namespace modemsim {

// home_plmn begins the IMSI, and an ef_ad the profile gives says the MNC length
// that the home network has (the low digit of its fourth byte).
std::optional<FieldProblem> CheckHomeNetwork(const SimState& sim);

// The registered operator is an entry of the operator list (the same identity
// and technology) that is not forbidden.
std::optional<FieldProblem> CheckRegisteredOperator(const NetworkState& network);

// cme_error goes with the failure "error" only.
std::optional<FieldProblem> CheckOperatorScan(const OperatorScan& scan);

// Entries in rising index order, within the capacity.
std::optional<FieldProblem> CheckPreferredList(const PreferredList& list);

}  // namespace modemsim

#endif
