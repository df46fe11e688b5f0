# What nearly every file of a large target includes is parsed once for the target: it halves the time
# of a build. Files still include all they use; `./test lint` builds without this.
set(standardHeaders <algorithm> <array> <filesystem> <functional> <map> <memory> <optional> <set>
    <sstream> <string> <string_view> <tuple> <unordered_map> <utility> <variant> <vector>)
set(recordHeaders ${standardHeaders} <boost/describe.hpp> <boost/mp11.hpp>
    "${PROJECT_SOURCE_DIR}/TaxCore/base/Decimal.h" "${PROJECT_SOURCE_DIR}/TaxCore/base/Json.h"
    "${PROJECT_SOURCE_DIR}/TaxCore/base/Record.h")
set(caseHeaders ${recordHeaders} "${PROJECT_SOURCE_DIR}/TaxCore/model/TaxCase.h"
    "${PROJECT_SOURCE_DIR}/TaxCore/rulebook/RuleBook.h" "${PROJECT_SOURCE_DIR}/TaxCore/result/TaxResult.h")
set(storeHeaders ${caseHeaders} <QObject> <QString> "${PROJECT_SOURCE_DIR}/Fiscarel_SG/AppStore.h")
set(windowHeaders ${storeHeaders} <QtWidgets>)
set(testHeaders <gtest/gtest.h>)

function(precompile target)
    if(TARGET ${target})
        target_precompile_headers(${target} PRIVATE ${ARGN})
    endif()
endfunction()

precompile(taxcore ${caseHeaders})
precompile(fiscarel-state ${caseHeaders})
precompile(fiscarel-outputs ${caseHeaders})
precompile(fiscarel-pages ${caseHeaders})
precompile(fiscarel-report ${caseHeaders} <QtGui>)
precompile(fiscarel-documents ${recordHeaders} <QString>)
precompile(fiscarel-app ${storeHeaders})
precompile(fiscarel-sync ${storeHeaders})
precompile(fiscarel-ui ${windowHeaders})
precompile(fiscarel-reading ${recordHeaders} <QImage> <QString>)
precompile(fiscarel-cli-lib ${caseHeaders})
precompile(fiscarel-server-core ${standardHeaders})

precompile(household-cases ${caseHeaders})
precompile(document-papers ${standardHeaders} <QtGui>)
precompile(engine-tests ${caseHeaders} ${testHeaders})
precompile(cli-tests ${caseHeaders} ${testHeaders})
precompile(outputs-tests ${caseHeaders} ${testHeaders})
precompile(report-tests ${caseHeaders} ${testHeaders})
precompile(app-tests ${storeHeaders} ${testHeaders})
precompile(fault-tests ${storeHeaders} ${testHeaders})
precompile(cloud-tests ${storeHeaders} ${testHeaders})
precompile(gui-tests ${windowHeaders} ${testHeaders} <QtTest>)
precompile(server-tests ${standardHeaders} ${testHeaders})
precompile(reading-tests ${recordHeaders} ${testHeaders})
precompile(reader-tests ${recordHeaders} ${testHeaders} <QImage>)
