//! What texts name.
//!
//! Made from `api/lumozeph.json` by `scripts/bindings`: change that, or the templates.

use crate::name::{Key, Name};

/// The kinds of texts, which are no values.
pub mod kinds {
    /// A text that the library does not interpret.
    #[derive(Clone, Copy, Debug)]
    pub enum Text {}

    /// The key of what it names.
    #[derive(Clone, Copy, Debug)]
    pub enum AnyKey {}

    /// The key of a router instance.
    #[derive(Clone, Copy, Debug)]
    pub enum InstanceKey {}

    /// The key of a bridge.
    #[derive(Clone, Copy, Debug)]
    pub enum BridgeKey {}

    /// The key of a bridge cluster.
    #[derive(Clone, Copy, Debug)]
    pub enum ClusterKey {}

    /// The key of a bridge endpoint.
    #[derive(Clone, Copy, Debug)]
    pub enum EndpointKey {}

    /// The name of a LIF.
    #[derive(Clone, Copy, Debug)]
    pub enum LifName {}

    /// The second name of a LIF.
    #[derive(Clone, Copy, Debug)]
    pub enum LifSecondName {}

    /// The name of a port connection.
    #[derive(Clone, Copy, Debug)]
    pub enum ConnectionName {}

    /// The name of a policy table.
    #[derive(Clone, Copy, Debug)]
    pub enum PolicyTableName {}

    /// The name of a cluster's node.
    #[derive(Clone, Copy, Debug)]
    pub enum NodeName {}

    /// The name of a bridge endpoint.
    #[derive(Clone, Copy, Debug)]
    pub enum EndpointName {}

    /// The name of a port.
    #[derive(Clone, Copy, Debug)]
    pub enum PortName {}

    /// The name of a target of receive-side scaling.
    #[derive(Clone, Copy, Debug)]
    pub enum TargetName {}

    /// A MAC address as text.
    #[derive(Clone, Copy, Debug)]
    pub enum MacText {}
}

/// A text that the library does not interpret.
pub type Text<'a> = Name<'a, kinds::Text>;

/// The key of what it names.
pub type AnyKey<'a> = Name<'a, kinds::AnyKey>;

/// The key of a router instance.
pub type InstanceKey<'a> = Name<'a, kinds::InstanceKey>;

/// The key of a bridge.
pub type BridgeKey<'a> = Name<'a, kinds::BridgeKey>;

/// The key of a bridge cluster.
pub type ClusterKey<'a> = Name<'a, kinds::ClusterKey>;

/// The key of a bridge endpoint.
pub type EndpointKey<'a> = Name<'a, kinds::EndpointKey>;

/// The name of a LIF.
pub type LifName<'a> = Name<'a, kinds::LifName>;

/// The second name of a LIF.
pub type LifSecondName<'a> = Name<'a, kinds::LifSecondName>;

/// The name of a port connection.
pub type ConnectionName<'a> = Name<'a, kinds::ConnectionName>;

/// The name of a policy table.
pub type PolicyTableName<'a> = Name<'a, kinds::PolicyTableName>;

/// The name of a cluster's node.
pub type NodeName<'a> = Name<'a, kinds::NodeName>;

/// The name of a bridge endpoint.
pub type EndpointName<'a> = Name<'a, kinds::EndpointName>;

/// The name of a port.
pub type PortName<'a> = Name<'a, kinds::PortName>;

/// The name of a target of receive-side scaling.
pub type TargetName<'a> = Name<'a, kinds::TargetName>;

/// A MAC address as text.
pub type MacText<'a> = Name<'a, kinds::MacText>;

impl Key for kinds::InstanceKey {}
impl Key for kinds::BridgeKey {}
impl Key for kinds::ClusterKey {}
impl Key for kinds::EndpointKey {}
