//! Finds liblumozeph: in the folder that LUMOZEPH_LIB_DIR names, or where pkg-config says (another program, if
//! PKG_CONFIG names one).

use std::env;
use std::ffi::OsString;
use std::process::{exit, Command};

fn main() {
    for variable in ["LUMOZEPH_LIB_DIR", "PKG_CONFIG", "PKG_CONFIG_PATH", "PKG_CONFIG_LIBDIR", "PKG_CONFIG_SYSROOT_DIR"]
    {
        println!("cargo:rerun-if-env-changed={variable}");
    }
    println!("cargo:rerun-if-changed=build.rs");
    match env::var("LUMOZEPH_LIB_DIR") {
        Ok(folder) => {
            println!("cargo:rustc-link-search=native={folder}");
            println!("cargo:rustc-link-lib=lumozeph");
        }
        Err(_) => ask_pkg_config().unwrap_or_else(|reason| {
            eprintln!("{reason}; install liblumozeph-dev, or let LUMOZEPH_LIB_DIR name the library's folder");
            exit(1);
        }),
    }
}

fn ask_pkg_config() -> Result<(), String> {
    let program = env::var_os("PKG_CONFIG").unwrap_or_else(|| OsString::from("pkg-config"));
    // The smallest release that has what is declared here.
    let required = concat!("lumozeph >= ", env!("CARGO_PKG_VERSION_MAJOR"), ".", env!("CARGO_PKG_VERSION_MINOR"));
    let output = Command::new(&program)
        .args(["--libs", "--print-errors", required])
        .output()
        .map_err(|error| format!("{}: {error}", program.to_string_lossy()))?;
    if !output.status.success() {
        return Err(String::from_utf8_lossy(&output.stderr).trim().to_string());
    }
    for flag in String::from_utf8_lossy(&output.stdout).split_whitespace() {
        match flag.split_at(2.min(flag.len())) {
            ("-L", folder) => println!("cargo:rustc-link-search=native={folder}"),
            ("-l", library) => println!("cargo:rustc-link-lib={library}"),
            _ => {}
        }
    }
    Ok(())
}
