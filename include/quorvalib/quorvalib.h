// quorvalib: the material-data engine. This is the one header a caller includes.
#ifndef QUORVALIB_QUORVALIB_H
#define QUORVALIB_QUORVALIB_H

#include <quorvalib/bank.h>
#include <quorvalib/batch.h>
#include <quorvalib/defaults.h>
#include <quorvalib/evaluators.h>
#include <quorvalib/export.h>
#include <quorvalib/files.h>
#include <quorvalib/frmout.h>
#include <quorvalib/manipulator.h>
#include <quorvalib/measured.h>
#include <quorvalib/properties.h>
#include <quorvalib/record.h>
#include <quorvalib/registry.h>
#include <quorvalib/runfile.h>
#include <quorvalib/version.h>
#include <quorvalib/vocabulary.h>

#endif
