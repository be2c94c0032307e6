#include "batch/batch.h"
#include "batch/processes.h"

int main(int count, char** values) {
    return vantelgis::batch::runBatch(vantelgis::batch::programArguments(count, values));
}
