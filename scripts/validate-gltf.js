#!/usr/bin/env node
// Validates glTF files with the Khronos glTF validator; exits non-zero when any file has an error.
// Usage: validate-gltf.js FILE_OR_DIRECTORY...  (directories: every .glb and .gltf inside)
// The validator package is looked up in build-tools/node_modules (npm install --prefix
// build-tools gltf-validator) unless GLTF_VALIDATOR names its folder.
'use strict';
const fs = require('fs');
const path = require('path');

const validator = require(process.env.GLTF_VALIDATOR ||
  path.join(__dirname, '..', 'build-tools', 'node_modules', 'gltf-validator'));

function collect(target) {
  if (!fs.statSync(target).isDirectory()) return [target];
  return fs.readdirSync(target).filter((name) => /\.(glb|gltf)$/.test(name)).sort()
    .map((name) => path.join(target, name));
}

// Referenced files (textures, buffers) are read beside the glTF file.
function externalResource(file) {
  return (uri) => new Promise((resolve, reject) => {
    fs.readFile(path.join(path.dirname(file), decodeURIComponent(uri)), (error, data) =>
      error ? reject(error.toString()) : resolve(new Uint8Array(data)));
  });
}

async function validate(file) {
  const report = await validator.validateBytes(new Uint8Array(fs.readFileSync(file)), {
    uri: path.basename(file),
    externalResourceFunction: externalResource(file),
  });
  const issues = report.issues;
  console.log(`${file}: ${issues.numErrors} errors, ${issues.numWarnings} warnings`);
  for (const message of issues.messages) {
    if (message.severity <= 1) {
      console.log(`  ${message.severity === 0 ? 'error' : 'warning'} ${message.code} ` +
                  `${message.pointer || ''}: ${message.message}`);
    }
  }
  return issues.numErrors;
}

async function main() {
  const files = process.argv.slice(2).flatMap(collect);
  if (files.length === 0) {
    console.error('validate-gltf: no glTF files given or found');
    process.exit(1);
  }
  let errors = 0;
  for (const file of files) errors += await validate(file);
  process.exit(errors === 0 ? 0 : 1);
}

main().catch((error) => {
  console.error(`validate-gltf: ${error}`);
  process.exit(1);
});
