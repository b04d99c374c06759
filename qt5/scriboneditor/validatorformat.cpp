#include "validatorformat.h"

// clang-format off
// Some are wider than they look, such as the range "_-(" of VarName_VF, which stands for all
// characters from the bracket to the underscore: files in use rely on that.
const std::array<const char*, VALIDATOR_COUNT> ValidatorPatterns{
    R"x(^([A-Za-z_0-9][A-Za-z_0-9]?){1,31})x",
    R"x(^[A-Za-z_]([A-Za-z_0-9]*){1,31})x",
    R"x(^\/(([A-Za-z_0-9.])+\/?)+)x",
    R"x(^(".*")|('.*'))x",
    R"x(^.?\d+(.\d+)?\[(min|sec|hr|msec|MIN|SEC|HR|MSEC)\])x",
    R"x(^([A-Za-z]([A-Za-z_0-9]*)){1,79}(([A-Za-z%0-9_-()/.*]{1,32}))?)x",
    R"x(^[0-9]{1,31})x",
    R"x(^(YES|Yes|yes|NO|No|no))x",
    R"x(^#.{0,79})x",
    R"x(^.{1,32})x",
    R"x(^[A-Za-z_0-9]{1,79})x",
    R"x(^((\.AV)|(\.MN)|(\.MX)|(\.RN)|(\.SD)|(\.C0)|(\.IV)|(\.FV)|(\.DL)|(\.E0)|(\.CI)|(\.I0)|(\.I5)|(\.I9)|(\.ME)|(\.MD)|(\.RM)|(\.ST)|(\.EN)|(\.TN)|(\.TX)|(\.C1)|(\.IN)|(\.IT)|(\.RS)|(\.CV)|(\.E1)|(\.RA)|(\.NM)|(\.SE)|(\.RC)|(\.QF)|(\.NR))|(LOG_DIGITAL_DESCP)|(FILLER_TXT))x",
    R"x(^([$A-Za-z]([A-Za-z_0-9@/:]*)){1,79})x",
    R"x(^(([A-Za-z]([A-Za-z_0-9]*)(@[0-9]*)?)){1,79})x",
    R"x(^(/([^(/:)]*))*:([A-Za-z_-0-9]*):[0-9]{1,2})x",
    R"x(^"(([A-Za-z_0-9. ']*)){1,79}(([A-Za-z%0-9_-()/.*]{1,32}))?")x",
    R"x(^'(([A-Za-z_0-9. ]*)){1,79}(([A-Za-z%0-9_-()/.*]{1,32}))?')x",
};
// clang-format on
