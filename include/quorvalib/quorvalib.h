// quorvalib: the material-data engine. This is the one header a caller includes.
//
// Threads. The library starts no thread and takes no lock on an evaluation path. Three groups:
// - Any number of threads, also on the same record, as long as no thread changes that record:
//   the evaluators and value getters (properties.h), field readers and type tests (record.h), the
//   names, QrvGetMaterialType, QrvGetMFIString and QrvGetContent (vocabulary.h; each thread has
//   texts of its own), QrvGetMTCInfo, QrvGetMTCData and the const readers of measured curves
//   (measured.h), QrvGetDefaultMaterial, QrvIsRIM of a path, the version calls; likewise the
//   batch evaluators (QrvGetViscosityN and the rest) and Evaluate of a built MaterialProperty
//   evaluator.
// - One thread per object, different objects in parallel: MATIO_Manipulator, MATIO_RSVManipulator,
//   MATIO_BankManipulator, MATIO_QrvNonPolyMat, and the calls that change a record
//   (QrvReleaseMaterial, QrvAddMTCData, QrvRemoveAllMTC, the writers of measured curves).
// - One thread at a time in the whole process: every call that opens a material file or a bank
//   (files.h, MATIO_Manipulator::GetMaterial and SaveMaterial, the bank calls) and the report
//   (GetLogString). Loads share one static buffer for the mapped file name and one for the old
//   form's text fields, the report one label text, and every open switches the process-global
//   locale (C library's included) to the system's default for its duration: meanwhile no other
//   thread should print or read numbers as text (QrvGetContent, QrvGetNonPlastic_Density).
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
